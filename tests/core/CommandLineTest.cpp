#include "shell/CommandLine.h"
#include "tests/support/ChartTest.h"
#include "tests/support/SizedPictures.h"

namespace morvane {

namespace {

class CommandLineTest : public ::testing::Test {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return CommandLine::Parse(arguments).Run(out, err);
  }

  TempFolder folder;
  const std::string chart = folder.Write("Small.mrv", ModelFile::ToDisk(SmallChart()));
  SizedPictures pictures;
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(CommandLineTest, WrongUseSaysWhatIsWrong) {
  const std::string gif = folder.Path("x.gif");
  const std::string png = folder.Path("x.png");
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"a.mrv", "b.mrv"}, "too many arguments, from 'b.mrv' on"},
      {{"--convert", "x.mrv"}, "--convert: needs OUT FILE"},
      {{"--help", "me"}, "--help: too many arguments, from 'me' on"},
      {{"-x"}, "unknown option '-x'"},
      {{"--check"}, "--check: needs FILE..."},
      {{"--check", chart, "-json"}, "--check: unknown option '-json'"},
      {{"--check", "--json=1", chart}, "--check: option '--json' takes no value"},
      {{"--import"}, "--import: needs FILE"},
      {{"--import", chart}, "--import: needs -o OUT"},
      {{"--import", chart, "-o"}, "--import: option '-o' needs a name"},
      {{"--diff", chart}, "--diff: needs OLD NEW"},
      {{"--diff", chart, chart, chart}, "--diff: too many arguments"},
      {{"--diff", "--export", gif, chart, chart}, "Pictures end in .png, .svg, .pdf or .emf"},
      {{"--describe", chart, chart}, "--describe: too many arguments"},
      {{"--generate", "c"}, "--generate: needs LANGUAGE FILE"},
      {{"--generate", "pascal", chart}, "'pascal' is not cpp, c, cs, java or xml"},
      {{"--generate", "c", "-o", chart}, "--generate: needs LANGUAGE FILE"},
      {{"--new-instance", "a", "b"}, "too many arguments, from 'b' on"},
      {{"--coverage", "--min", "x", chart, chart}, "--min: 'x' is not a number from 0 to 100"},
      {{"--export", "--scale", "9", png, chart}, "--scale: '9' is not a number from 0.1 to 8"},
      {{"--export", "--scale", "nan", png, chart}, "--scale: 'nan' is not a number"},
      {{"--export", "--scale=1", "--scale=2", png, chart}, "option '--scale' is given twice"},
      {{"--export", "--kind", "gif", png, chart}, "--kind: 'gif' is not png, svg, pdf or emf"},
      {{"--export", gif, chart}, "Pictures end in .png, .svg, .pdf or .emf"}};
  for (const auto& [arguments, problem] : cases) {
    EXPECT_EQ(Run(arguments), 2) << problem;
    EXPECT_EQ(out.str(), "");
    EXPECT_NE(err.str().find(problem), std::string::npos) << err.str();
  }
  EXPECT_FALSE(std::filesystem::exists(gif) || std::filesystem::exists(png));
}

TEST_F(CommandLineTest, WordsBehindTwoHyphensAreNoOptions) {
  EXPECT_EQ(CommandLine::Parse({"--", "-x.mrv"}).File(), "-x.mrv");
  EXPECT_EQ(CommandLine::Parse({"--new-instance", "--", "--help"}).File(), "--help");
  EXPECT_TRUE(CommandLine::Parse({"a.mrv", "--new-instance"}).IsNewInstance());
  EXPECT_FALSE(CommandLine::Parse({"a.mrv"}).IsJob());
}

TEST_F(CommandLineTest, OutputGoesToAStreamByAHyphen) {
  EXPECT_EQ(Run({"--convert", "-", chart}), 0);
  EXPECT_EQ(out.str(), ModelFile::ToDisk(SmallChart()));
  EXPECT_EQ(Run({"--export", "--kind=svg", "-", chart}), 0);
  EXPECT_EQ(out.str().rfind("<?xml", 0), 0U);
}

TEST_F(CommandLineTest, ConvertWritesThePresentVersion) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {chart, folder.Path("out.mrv"), SmallChart()},
      {chart, chart, SmallChart()},
      {folder.Write("empty.mrv", ""), folder.Path("out.mrv"), ChartText("")}};
  for (const auto& [from, to, text] : cases) {
    EXPECT_EQ(Run({"--convert", to, from}), 0) << err.str();
    EXPECT_EQ(out.str() + err.str(), "");
    EXPECT_EQ(folder.Read(to), ModelFile::ToDisk(text));
  }
}

TEST_F(CommandLineTest, CheckSaysWhatIsWrongWithEachFile) {
  const std::string twins = folder.Write(
      "twins.mrv", ModelFile::ToDisk(ChartText(StateRecord(1, {0, 0, 20, 20}, "gr\xFC\"n") +
                                               StateRecord(2, {10, 10, 30, 30}))));
  const std::string none = folder.Path("none.mrv");
  EXPECT_EQ(Run({"--check", chart}), 0);
  EXPECT_EQ(out.str() + err.str(), "");
  EXPECT_EQ(Run({"--check", chart, twins, none}), 1);
  EXPECT_EQ(out.str(), twins +
                           ":4: error: GenericState 1 \"gr\xC3\xBC\"n\" overlaps GenericState 2 "
                           "\"State\"\n1 error\n" +
                           none + ": error: No such file or directory\n1 error\n");
  EXPECT_EQ(Run({"--check", "--json", twins, none}), 1);
  EXPECT_EQ(out.str(), R"([
  {
    "file": ")" + twins + R"(",
    "problems": [
      {
        "severity": "error",
        "line": 4,
        "id": 1,
        "object": "GenericState 1 \"grü\"n\"",
        "message": "GenericState 1 \"grü\"n\" overlaps GenericState 2 \"State\""
      }
    ]
  },
  {
    "file": ")" + none + R"(",
    "problems": [
      {
        "severity": "error",
        "message": "No such file or directory"
      }
    ]
  }
]
)");
}

TEST_F(CommandLineTest, DiffAnswersLikeAProgramThatComparesFiles) {
  const std::string other =
      folder.Write("other.mrv", ModelFile::ToDisk(ChartText(StateRecord(1, {0, 0, 20, 20}))));
  const std::string none = folder.Path("none.mrv");
  EXPECT_EQ(Run({"--diff", chart, chart}), 0);
  EXPECT_EQ(out.str() + err.str(), "");
  EXPECT_EQ(Run({"--diff", chart, other}), 1);
  EXPECT_NE(out.str().find("+ GenericState 1 \"State\"\n"), std::string::npos) << out.str();
  EXPECT_EQ(Run({"--diff", "/dev/null", other}), 1) << "version control names a missing file so";
  for (const auto& [old, now, complaint] :
       {std::tuple(none, chart, none + ": No such file or directory\n"),
        std::tuple(chart, folder.Write("bad.mrv", "hello"),
                   folder.Path("bad.mrv") + ": Not a valid Morvane model file\n")}) {
    EXPECT_EQ(Run({"--diff", old, now}), 2);
    EXPECT_EQ(err.str(), complaint);
    EXPECT_EQ(out.str(), "");
  }
  const std::string picture = folder.Path("d.svg");
  EXPECT_EQ(Run({"--diff", "--export", picture, chart, other}), 1);
  EXPECT_EQ(out.str() + err.str(), "");
  const std::string svg = folder.Read(picture);
  EXPECT_EQ(svg.rfind("<", 0), 0U);
  EXPECT_EQ(Run({"--export", picture, "--diff", chart, other}), 1);
  EXPECT_EQ(folder.Read(picture), svg);
  EXPECT_EQ(Run({"--diff", "--export", folder.Path("no/d.svg"), chart, other}), 2);
  EXPECT_EQ(Run({"--describe", chart}), 0);
  EXPECT_EQ(out.str().rfind("Chart\n", 0), 0U);
  EXPECT_EQ(Run({"--describe", none}), 1);
}

TEST_F(CommandLineTest, FailuresNameFileAndReasonAndWriteNothing) {
  pictures.limit = 100;
  const std::string none = folder.Path("none.mrv");
  const std::string bad = folder.Write("bad.mrv", "hello");
  const std::string nowhere = folder.Path("no/o.mrv");
  const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
      {"--convert", folder.Path("o.mrv"), bad, bad + ": Not a valid Morvane model file\n"},
      {"--convert", folder.Path("o.mrv"), none, none + ": No such file or directory\n"},
      {"--export", folder.Path("o.svg"), bad, bad + ": Not a valid Morvane model file\n"},
      {"--export", folder.Path("o.svg"), none, none + ": No such file or directory\n"},
      {"--convert", nowhere, chart, nowhere + ": Unable to open for writing\n"},
      {"--export", folder.Path("o.pdf"), chart, "too large"}};
  for (const auto& [job, output, file, message] : cases) {
    EXPECT_EQ(Run({job, output, file}), 1);
    EXPECT_NE(err.str().find(message), std::string::npos) << err.str();
    EXPECT_FALSE(std::filesystem::exists(output));
  }
}

TEST_F(CommandLineTest, GenerateWritesCodeIntoAFolderOrSaysWhyNot) {
  const std::string lamp = folder.Write(
      "Lamp.mrv", ModelFile::ToDisk(ChartText(InitialRecord(101, {20, 6, 24, 10}) +
                                              StateRecord(102, {10, 24, 40, 50}, "Off") +
                                              TransitionRecord(103, 101, 102))));
  std::filesystem::create_directory(folder.Path("out"));
  const std::pair<const char*, const char*> languages[] = {{"c", "Lamp.c"}, {"xml", "Lamp.scxml"}};
  for (const auto& [language, name] : languages) {
    EXPECT_EQ(Run({"--generate", language, "-o", folder.Path("out"), lamp}), 0) << err.str();
    EXPECT_EQ(out.str() + err.str(), "");
    EXPECT_NE(folder.Read(std::string("out/") + name).find("Off"), std::string::npos) << name;
  }
  const std::filesystem::path former = std::filesystem::current_path();
  std::filesystem::current_path(folder.Root());
  EXPECT_EQ(Run({"--generate", "c", "Lamp.mrv"}), 0) << err.str();
  std::filesystem::current_path(former);
  EXPECT_EQ(folder.Read("Lamp.c"), folder.Read("out/Lamp.c"));

  const std::string empty = folder.Write("Empty.mrv", ModelFile::ToDisk(ChartText("")));
  for (const std::string& file : {empty, folder.Path("none.mrv")}) {
    EXPECT_EQ(Run({"--generate", "c", "-o", folder.Path("out"), file}), 1);
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(err.str().starts_with(file + ": error: ")) << err.str();
    EXPECT_TRUE(err.str().ends_with("1 error\n")) << err.str();
  }
  EXPECT_EQ(Run({"--generate", "c", "-o", folder.Path("nowhere"), lamp}), 1);
  EXPECT_NE(err.str().find("No such file or directory"), std::string::npos) << err.str();
  EXPECT_FALSE(std::filesystem::exists(folder.Path("out/Empty.c")));
}

TEST_F(CommandLineTest, PicturesShowTheWholeChartAtNormalSize) {
  // The note reaches (52, 16), the state (27, 32), and the file's zoom is another.
  std::string text = SmallChart();
  text.replace(text.find("\n6\n"), 3, "\n13\n");
  folder.Write("Small.mrv", ModelFile::ToDisk(text));
  for (const char* name : {"o.png", "o.SVG", "again.svg"}) {
    EXPECT_EQ(Run({"--export", folder.Path(name), chart}), 0) << err.str();
  }
  EXPECT_EQ(folder.Read("o.png"), "318x198 printed");
  const std::string svg = folder.Read("o.SVG");
  EXPECT_NE(svg.find("width=\"318\" height=\"198\""), std::string::npos);
  EXPECT_NE(svg.find(">lines</text>"), std::string::npos);
  EXPECT_EQ(folder.Read("again.svg"), svg);
}

TEST_F(CommandLineTest, OptionsShapeAPicture) {
  // What is drawn is 39 model units wide and 26 high, six logical units each.
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--scale", "2"}, "636x396 printed"},
      {{"--size=100"}, "100x63 printed"},
      {{"--margin", "0"}, "234x156 printed"},
      {{"--margin", "10", "--dpi", "192"}, "508x352 printed"},
      {{"--state", "nobody"}, nullptr}};
  for (const auto& [options, size] : cases) {
    std::vector<std::string> arguments = {"--export", folder.Path("o.png"), chart};
    arguments.insert(arguments.begin() + 1, options.begin(), options.end());
    EXPECT_EQ(Run(arguments), size != nullptr ? 0 : 1) << err.str();
    if (size == nullptr) continue;
    EXPECT_EQ(folder.Read("o.png"), size) << options[0];
  }
  EXPECT_EQ(err.str(), chart + ": there is no state 'nobody'\n");
  const std::string svg = folder.Path("o.svg");
  EXPECT_EQ(Run({"--export", "--scale", "1.5", "--dpi", "192", svg, chart}), 0);
  EXPECT_NE(folder.Read("o.svg").find("width=\"477\" height=\"297\" viewBox=\"0 0 318 198\""),
            std::string::npos);
  const std::string ground = "<rect width=\"318\" height=\"198\" fill=\"#ffffff\"/>";
  EXPECT_NE(folder.Read("o.svg").find(ground), std::string::npos);
  EXPECT_EQ(Run({"--export", svg, "--transparent", chart}), 0);
  EXPECT_EQ(folder.Read("o.svg").find(ground), std::string::npos);
}

}  // namespace

}  // namespace morvane
