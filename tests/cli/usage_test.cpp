// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What the program says to a command line that it does not understand, and what it says about
// itself.

#include <string>

#include <gtest/gtest.h>

#include "tests/cli/run_command.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

struct UsageCase {
  std::string name;
  std::string line;
  std::string message;
};

class WrongUsage : public ::testing::TestWithParam<UsageCase> {};

TEST_P(WrongUsage, IsToldOnOneLine) {
  const CommandRunner runner;
  const auto result = runner.Run(GetParam().line);
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.answer, "");
  EXPECT_EQ(result.errors, "brindle: " + GetParam().message + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WrongUsage,
    ::testing::Values(
        UsageCase{"UnknownCommand", "bitrat",
                  "there is no command \"bitrat\"; brindle --help lists "
                  "them"},
        UsageCase{"EmptyCommand", "''", "there is no command \"\"; brindle --help lists them"},
        UsageCase{"UnknownOptionOfTheProgram", "--frob",
                  "there is no option \"--frob\"; brindle --help lists the commands"},
        UsageCase{"OptionBeforeTheCommand", "--json bitrate",
                  "there is no option \"--json\"; brindle --help lists the commands"},
        UsageCase{"MoreThanTheVersion", "--version now", "not expected here: \"now\""},
        UsageCase{"UnknownOption", "bitrate --frob 5 --size 700", "there is no option \"--frob\""},
        UsageCase{"UnknownShortOption", "bitrate -x", "there is no option \"-x\""},
        UsageCase{"SuperfluousWord", "bitrate 700", "not expected here: \"700\""},
        UsageCase{"SecondDuration", "time 5 6", "DURATION is given more than once"},
        UsageCase{"WordAfterAList", "bitrate --audio 192 128", "not expected here: \"128\""},
        UsageCase{"OptionWithoutItsValue", "bitrate --size", "--size needs a value"},
        UsageCase{"OptionTwice", "bitrate --size 700 --size 800", "--size is given more than once"},
        UsageCase{"OptionByBothOfItsNames", "bitrate --size 700 --capacity 800",
                  "--size is given more than once"},
        UsageCase{"DecimalComma", "bitrate --size 700,5",
                  "--size \"700,5\" has a comma; decimals are written with a period: \"700.5\""},
        UsageCase{"DecimalCommaAfterAnEqualsSign", "bitrate --size=700,5",
                  "--size \"700,5\" has a comma; decimals are written with a period: \"700.5\""},
        UsageCase{"WordForANumber", "bitrate --discs two", "--discs \"two\" is not a number"},
        UsageCase{"NegativeNumber", "time -5", "DURATION \"-5\" is below 0"},
        UsageCase{
            "OneWrongTrackOfSeveral", "space --audio wav44 --audio wav96",
            "--audio \"wav96\" is neither wav44 nor wav48 nor a bitrate in kbps, such as 224"},
        UsageCase{"TrackWithAComma", "space --audio 1,5",
                  "--audio \"1,5\" has a comma; decimals are written with a period: \"1.5\""},
        UsageCase{"VideoByBitrateAndSize", "space --video-bitrate 900 --video-size 700",
                  "--video-bitrate and --video-size cannot be given together"},
        UsageCase{"FlagWithAValue", "bitrate --json=5", "--json takes no value"},
        UsageCase{"ThreeSegments", "split --segment 1 --segment 2 --segment 3",
                  "--segment is given more than twice; the last one gets the rest"},
        UsageCase{"BothSidesOfARatio", "resolution --width 640 --height 360",
                  "--width and --height together leave nothing to work out; give one of them, or "
                  "--ratio free"},
        UsageCase{"LargeIncrement", "resolution --increment 257",
                  "--increment \"257\" is more than 256"},
        UsageCase{"NoFile", "peaks", "FILE is missing"},
        UsageCase{"NoFileToUndo", "undo --json", "FILE is missing"},
        UsageCase{"UnknownOptionWithoutAFile", "peaks --frob", "there is no option \"--frob\""},
        UsageCase{"NeitherOutputNorInPlace", "normalize a.wav",
                  "--output says where the result goes; --in-place writes over the recording "
                  "itself"},
        UsageCase{"OutputAndInPlace", "normalize a.wav --output b.wav --in-place",
                  "--output and --in-place cannot be given together"},
        UsageCase{"FinishWithAPercentage", "normalize a.wav --finish --to 98%",
                  "--finish and --to cannot be given together"},
        UsageCase{"OneOutputForSeveralFiles", "normalize a.wav b.wav --output c.wav",
                  "--output is no folder, but there are several files"},
        UsageCase{"MoreThanTheRange", "normalize a.wav --in-place --to 101%",
                  "--to \"101%\" is more than 100%"},
        UsageCase{"UnknownBuffering", "normalize a.wav --in-place --buffering many",
                  "--buffering \"many\" is neither multi nor single"},
        UsageCase{"EmptyOutput", "normalize a.wav --output ''", "--output needs a path"}),
    NameOf);

TEST(NoArguments, AreWrongUsage) {
  const CommandRunner runner;
  const auto result = runner.Run(std::vector<std::string>());
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.errors, "brindle: a command is missing; brindle --help lists them\n");
}

TEST(Version, IsTold) {
  const CommandRunner runner;
  const auto result = runner.Run("--version");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.answer, "brindle 2.91\n");
  EXPECT_EQ(result.errors, "");
}

TEST(SettingsOption, NamesAFileThatIsNotThere) {
  const CommandRunner runner;
  const auto path = Native(runner.folder.PathOf("Brindle2.ini"));
  for (const auto& line : {std::string("bitrate --settings"), "bitrate --settings=" + path}) {
    const auto result = runner.Run(line);
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.errors, "brindle: cannot read " + path + ": " + NoSuchFile() + "\n");
  }
}

TEST(SettingsOption, NamesAFileThatHasNoSettings) {
  const CommandRunner runner;
  runner.folder.Put("Brindle2.ini", "hello\n");
  const auto result = runner.Run("bitrate --settings");
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors, "brindle: cannot read " + Native(runner.folder.PathOf("Brindle2.ini")) +
                               ": it is not a settings file of Brindle\n");
}

}  // namespace
}  // namespace brindle
