// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/start_arguments.h"

#include <string>

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/support/system_messages.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;
using Wish = StartArguments::Wish;

struct ArgumentCase {
  std::string name;
  QStringList arguments;
  Wish wish = Wish::Start;
  std::string text;
};

class StartedWith : public ::testing::TestWithParam<ArgumentCase> {};

TEST_P(StartedWith, DoesAsExpected) {
  const auto start = ReadStartArguments(GetParam().arguments);
  EXPECT_EQ(start.wish, GetParam().wish);
  EXPECT_EQ(start.text.toStdString().substr(0, GetParam().text.size()), GetParam().text);
  EXPECT_EQ(start.text.isEmpty(), GetParam().wish == Wish::Start);
  EXPECT_EQ(start.file, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StartedWith,
    ::testing::Values(
        ArgumentCase{"Nothing", {}},
        ArgumentCase{"Help", {u"--help"_s}, Wish::Tell, "Usage: brindle2 [FILE]\n"},
        ArgumentCase{"ShortHelp", {u"-h"_s}, Wish::Tell, "Usage: brindle2 [FILE]\n"},
        ArgumentCase{"Version", {u"--version"_s}, Wish::Tell, "brindle2 2.91\n"},
        ArgumentCase{"HelpBesideAnOptionOfTheToolkit",
                     {u"-style"_s, u"fusion"_s, u"--help"_s},
                     Wish::Tell,
                     "Usage: brindle2 [FILE]\n"},
        ArgumentCase{"UnknownOption",
                     {u"--frob"_s},
                     Wish::Refuse,
                     "brindle2: there is no option \"--frob\"; brindle2 --help shows those that "
                     "there are\n"},
        ArgumentCase{"UnknownShortOption",
                     {u"-x"_s},
                     Wish::Refuse,
                     "brindle2: there is no option \"-x\"; brindle2 --help"},
        ArgumentCase{"OptionOfTheToolkit", {u"-platform"_s, u"offscreen"_s}},
        ArgumentCase{"OptionOfTheToolkitWithTwoDashes", {u"--platform"_s, u"offscreen"_s}},
        ArgumentCase{"OptionOfTheToolkitWithAnEqualsSign", {u"-style=fusion"_s}},
        ArgumentCase{"OptionOfTheToolkitAlone", {u"-reverse"_s}},
        ArgumentCase{"RestoredSession", {u"-session"_s, u"1234"_s}},
        ArgumentCase{"EmptyWord", {u""_s}, Wish::Refuse, "brindle2: the file has no name\n"},
        ArgumentCase{"TwoFiles",
                     {u"a.wav"_s, u"b.wav"_s},
                     Wish::Refuse,
                     "brindle2: only one file can be opened\n"}),
    NameOf);

TEST(StartedWithAFile, IsRefusedIfItIsNotThere) {
  const auto path = u"/nowhere/a.wav"_s;
  const auto start = ReadStartArguments({path});
  EXPECT_EQ(start.wish, Wish::Refuse);
  EXPECT_EQ(start.text.toStdString(), "brindle2: cannot read " + NativePath(path) + ": " +
                                          PlainReasonOf(NoSuchFolder) + "\n");
}

TEST(StartedWithAFile, IsRefusedIfItIsAFolder) {
  const auto start = ReadStartArguments({u"/"_s});
  EXPECT_EQ(start.wish, Wish::Refuse);
  EXPECT_EQ(start.text.toStdString(),
            "brindle2: cannot read " + NativePath(u"/"_s) + ": not a file\n");
}

TEST(StartedWithAFile, OpensItIfItIsAWav) {
  const TemporaryFolder folder;
  folder.Put("-concert.wav", WavParts{.levels = {1, 2}}.Bytes());
  folder.Put("text.wav", "hello");
  const auto wav = folder.PathOf("-concert.wav");
  const auto text = folder.PathOf("text.wav");
  const auto wanted = [](const QStringList& arguments) { return ReadStartArguments(arguments); };
  EXPECT_EQ(wanted({wav}).file, wav);
  EXPECT_EQ(wanted({u"--"_s, wav}).file, wav);
  EXPECT_EQ(wanted({u"-style"_s, u"fusion"_s, wav}).file, wav);
  EXPECT_EQ(wanted({text}).wish, Wish::Refuse);
  EXPECT_EQ(wanted({text}).text, u"brindle2: cannot open "_s + text +
                                     u": this file does not appear to be a valid WAV\n"_s);
}

}  // namespace
}  // namespace brindle
