// Loads the chart as SCXML, feeds it events and tells which states are active.

#include <iostream>
#include <memory>
#include <utility>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QScxmlDataModel>
#include <QScxmlStateMachine>

namespace {

// The names that the texts of the chart use are declared by whoever loads it.
constexpr char kData[] =
    "<datamodel><data id=\"code\" expr=\"4711\"/><data id=\"alarms\" expr=\"0\"/></datamodel>";

std::unique_ptr<QScxmlStateMachine> Load(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return nullptr;
  QByteArray text = file.readAll();
  text.insert(text.indexOf('>', text.indexOf("<scxml")) + 1, kData);
  QBuffer buffer(&text);
  buffer.open(QIODevice::ReadOnly);
  return std::unique_ptr<QScxmlStateMachine>(QScxmlStateMachine::fromData(&buffer));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const auto alarm = Load("Alarm.scxml");
  if (!alarm || !alarm->parseErrors().isEmpty()) {
    std::cerr << "Alarm.scxml can't be loaded\n";
    return 1;
  }
  alarm->start();
  const std::pair<const char*, int> events[] = {{"Arm", 0},     {"Night", 0}, {"Motion", 0},
                                                {"Door", 0},    {"Code", 1},  {"Timeout", 0},
                                                {"Code", 4711}, {"Door", 0}};
  for (const auto& [event, data] : events) {
    QCoreApplication::processEvents();
    alarm->submitEvent(event, data);
    QCoreApplication::processEvents();
    std::cout << event << ": " << alarm->activeStateNames(false).join(' ').toStdString() << '\n';
  }
  std::cout << "alarms: " << alarm->dataModel()->scxmlProperty("alarms").toInt() << '\n';
}
