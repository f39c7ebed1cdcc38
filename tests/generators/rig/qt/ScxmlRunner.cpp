// Runs SCXML files and prints the trace that their logs are: scxml_runner EVENTS, a file of lines
// with a number, the name of an SCXML file, and the events that it is fed.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include <QCoreApplication>
#include <QScxmlStateMachine>

namespace {

/// Lets one machine work off what it has.
class Feeder {
 public:
  explicit Feeder(const std::string& file)
      : machine(QScxmlStateMachine::fromFile(QString::fromStdString(file))) {
    for (const QScxmlError& error : machine->parseErrors()) {
      std::cerr << error.toString().toStdString() << '\n';
    }
    QObject::connect(machine.get(), &QScxmlStateMachine::log,
                     [this](const QString& label, const QString& text) {
                       taken = taken || label == QLatin1String("take");
                       std::cout << label.toStdString() << ' ' << text.toStdString() << '\n';
                     });
    QObject::connect(machine.get(), &QScxmlStateMachine::reachedStableState,
                     [this] { stable = true; });
    QObject::connect(machine.get(), &QScxmlStateMachine::finished, [this] {
      stable = true;
      finished = true;
    });
  }

  bool Start() {
    if (!machine->parseErrors().isEmpty()) return false;
    machine->start();
    return Wait();
  }

  bool Feed(const std::string& event) {
    std::cout << "event " << event << '\n';
    taken = false;
    bool settled = true;
    if (!finished) {
      machine->submitEvent(QString::fromStdString(event));
      settled = Wait();
    }
    if (!taken) std::cout << "ignored " << event << '\n';
    return settled;
  }

 private:
  /// False if it doesn't come to rest.
  bool Wait() {
    stable = false;
    for (int turn = 0; !stable && turn < 10000; ++turn) QCoreApplication::processEvents();
    return stable;
  }

  std::unique_ptr<QScxmlStateMachine> machine;
  bool taken = false;
  bool stable = false;
  bool finished = false;
};

bool Run(std::istringstream& line) {
  std::string number;
  std::string file;
  line >> number >> file;
  std::cout << "== " << number << '\n';
  Feeder feeder(file);
  if (!feeder.Start()) return false;
  for (std::string event; line >> event;) {
    if (!feeder.Feed(event)) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc < 2) return 2;
  std::ifstream events(argv[1]);
  for (std::string text; std::getline(events, text);) {
    std::istringstream line(text);
    if (!Run(line)) {
      std::cerr << "Does not run: " << text.substr(0, 60) << '\n';
      return 1;
    }
  }
  return 0;
}
