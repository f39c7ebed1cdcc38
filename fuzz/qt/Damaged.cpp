#include <cstdlib>
#include <iostream>

#include <QApplication>

#include "fuzz/FuzzTarget.h"
#include "fuzz/Mutation.h"
#include "fuzz/qt/DamagedCharts.h"
#include "platform/Files.h"
#include "platform/qt/QtServices.h"
#include "shell/Language.h"
#include "tests/support/TempFolder.h"

using namespace morvane;

// Damaged charts in one window with real boxes: damaged EXAMPLES [COUNT [FIRST_SEED]], where
// EXAMPLES is the folder of the examples. Each of them cut at 30, 60 and 95 % of its bytes, and
// then COUNT that are damaged at random, the same ones each time. An input that ends the process is
// left in the file "damaged-input.mrv".

namespace {

constexpr const char* kExamples[] = {"Socket_C++/Socket.mrv", "Lift/Lift.mrv",
                                     "CashMachine/CashMachine.mrv"};
constexpr const char* kLastInput = "damaged-input.mrv";
constexpr int kReport = 500;

std::string Read(const std::string& path) {
  std::string bytes;
  Require(ReadWholeFile(path, bytes).Ok(), "an example cannot be read");
  return bytes;
}

void Open(DamagedCharts& charts, const std::string& bytes) {
  WriteWholeFile(kLastInput, bytes);
  charts.Open(bytes);
}

void Report(const DamagedCharts& charts) {
  std::cout << charts.Opened() + charts.Refused() << " damaged charts: " << charts.Opened()
            << " opened, " << charts.Refused() << " refused, " << charts.Boxes()
            << " boxes answered, every other chart has its text" << std::endl;
}

void Run(const std::string& examples, int count, unsigned firstSeed, const std::string& folder) {
  std::vector<std::string> texts;
  for (const char* name : kExamples) texts.push_back(Read(examples + "/" + name));
  DamagedCharts charts(texts.front(), folder);
  for (const std::string& text : texts) {
    for (const std::size_t percent : {30U, 60U, 95U}) {
      Open(charts, text.substr(0, text.size() * percent / 100));
    }
  }
  std::cout << "the examples cut: ";
  Report(charts);
  for (int i = 0; i < count; ++i) {
    const std::string& text = texts[static_cast<std::size_t>(i) % texts.size()];
    Open(charts, Mutation(firstSeed + static_cast<unsigned>(i)).Damage(text));
    if ((i + 1) % kReport == 0) Report(charts);
  }
  Report(charts);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: damaged EXAMPLES [COUNT [FIRST_SEED]]\n";
    return 2;
  }
  const std::string examples = argv[1];
  const int count = argc > 2 ? std::atoi(argv[2]) : 0;
  const unsigned firstSeed = argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 1;
  // Settings of its own, as those of a user who has chosen English.
  const TempFolder folder;
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.Root().string()));
  std::filesystem::create_directory(folder.Path("Halvern"));
  folder.Write("Halvern/Morvane.ini", "[General]\nLanguage=eng\n");
  const QApplication application(argc, argv);
  QApplication::setApplicationName("Morvane");
  QApplication::setQuitOnLastWindowClosed(false);
  {
    const QtServices services(QtServices::Use::Window);
    LoadLanguage();
    Run(examples, count, firstSeed, folder.Root().string());
  }
  std::filesystem::remove(kLastInput);
  return 0;
}
