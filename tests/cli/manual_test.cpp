// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What the program says about itself, held against what it does.

#include "cli/manual.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "tests/cli/run_command.h"

namespace brindle {
namespace {

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) {
    text += line + "\n";
  }
  return text;
}

class EveryCommand : public ::testing::TestWithParam<std::string> {
 protected:
  static std::unique_ptr<Command> Make() {
    for (const auto make : AllCommands()) {
      if (make()->Text().name == GetParam()) {
        return make();
      }
    }
    return nullptr;
  }
  static std::string Run(const std::string& line) { return CommandRunner().Run(line).answer; }
};

TEST_P(EveryCommand, IsInTheHelpOfTheProgram) {
  EXPECT_TRUE(Has(Run("--help"), "\n  " + GetParam() + " "));
  EXPECT_EQ(Run("--help"), Run("-h"));
}

TEST_P(EveryCommand, HelpsWithEachOption) {
  const auto command = Make();
  const auto text = command->Text();
  const auto help = Run(GetParam() + " --help");
  EXPECT_TRUE(help.starts_with("Usage: brindle " + GetParam() + " [OPTION]..."));
  EXPECT_TRUE(Has(help, "\nExample:\n  $ " + text.example + "\n"));
  EXPECT_TRUE(text.example.starts_with("brindle " + GetParam() + " "));
  for (const auto& option : OptionsOf(*command)) {
    EXPECT_FALSE(option.help.empty()) << option.names;
    EXPECT_FALSE(option.help.ends_with('.')) << option.names;
    for (const auto& name : option.Names()) {
      EXPECT_TRUE(Has(help, name)) << name;
    }
  }
}

TEST_P(EveryCommand, FitsIntoATerminal) {
  std::istringstream help(Run(GetParam() + " --help"));
  for (std::string line; std::getline(help, line);) {
    EXPECT_LE(line.size(), 79U) << line;
    EXPECT_FALSE(line.ends_with(' ')) << line;
  }
}

TEST_P(EveryCommand, AnswersItsExample) {
  const auto text = Make()->Text();
  if (!text.exampleOutput.empty()) {
    EXPECT_EQ(Run(text.example.substr(std::string("brindle ").size())), Lines(text.exampleOutput));
  }
}

TEST_P(EveryCommand, IsInTheManualPageWithEachOption) {
  const auto manual = *Written("man");
  const auto begin = manual.find(".SS \"brindle " + GetParam() + " ");
  ASSERT_NE(begin, std::string::npos);
  const auto section = manual.substr(begin, manual.find("\n.S", begin + 1) - begin);
  for (const auto& option : OptionsOf(*Make())) {
    for (const auto& name : option.Names()) {
      std::string escaped;
      for (const char c : name) {
        escaped += c == '-' ? "\\-" : std::string(1, c);
      }
      EXPECT_TRUE(Has(section, escaped)) << name;
    }
  }
}

TEST_P(EveryCommand, IsCompletedWithEachOption) {
  const auto bash = *Written("bash");
  const auto zsh = *Written("zsh");
  const auto inBash = bash.substr(bash.find("\n    " + GetParam() + ")\n"));
  const auto inZsh = zsh.substr(zsh.find("\n    " + GetParam() + ")\n"));
  const auto ofBash = inBash.substr(0, inBash.find("files="));
  const auto ofZsh = inZsh.substr(0, inZsh.find(";;"));
  EXPECT_TRUE(Has(zsh, "'" + GetParam() + ":"));
  for (const auto& option : OptionsOf(*Make())) {
    for (const auto& name : option.Names()) {
      EXPECT_TRUE(!option.IsOption() || Has(ofBash, name)) << name;
      EXPECT_TRUE(Has(ofZsh, name)) << name;
    }
    for (const auto& word : option.words) {
      EXPECT_TRUE(Has(ofBash, word)) << word;
    }
  }
}

// An option that is told of is one that is read: with a value that cannot be, it says so itself.
TEST_P(EveryCommand, KnowsTheOptionsThatItTellsOf) {
  for (const auto& option : OptionsOf(*Make())) {
    for (const auto& name : option.Names()) {
      if (option.IsOption()) {
        const auto errors = CommandRunner().Run({GetParam(), name, "", "x"}).errors;
        EXPECT_FALSE(Has(errors, "there is no option")) << errors;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Each, EveryCommand,
                         ::testing::Values("bitrate", "audio", "space", "split", "time", "size",
                                           "resolution", "info", "parts", "peaks", "normalize",
                                           "undo"),
                         [](const auto& instance) { return instance.param; });

// The examples of a text: lines that begin with "$ brindle", each with what it answers below it, up
// to an empty line or the end of the block. Those of recordings are left out.
struct Example {
  std::string line;
  std::string answer;
};

std::vector<Example> ExamplesIn(const char* path) {
  QFile file(QString::fromLatin1(path));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
  std::istringstream text(file.readAll().toStdString());
  std::vector<Example> examples;
  bool isWithin = false;
  for (std::string line; std::getline(text, line);) {
    line.erase(0, line.find_first_not_of(' '));
    const std::string prompt = "$ brindle ";
    if (line.starts_with(prompt)) {
      isWithin = !Has(line, ".wav");
      if (isWithin) {
        examples.push_back({line.substr(prompt.size()), ""});
      }
    } else if (line.empty() || line.starts_with('<')) {
      isWithin = false;
    } else if (isWithin) {
      examples.back().answer += line + "\n";
    }
  }
  return examples;
}

class Document : public ::testing::TestWithParam<const char*> {};

TEST_P(Document, HasExamplesThatAreTrue) {
  const auto examples = ExamplesIn(GetParam());
  EXPECT_EQ(examples.size(), 3U);
  for (const auto& example : examples) {
    EXPECT_EQ(CommandRunner().Run(example.line).answer, example.answer) << example.line;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, Document,
                         ::testing::Values(BRINDLE_SOURCE "/README.md",
                                           BRINDLE_SOURCE "/help/CommandLine.html"),
                         [](const auto& instance) {
                           return std::string(instance.index == 0 ? "Readme" : "Help");
                         });

TEST(HelpOfTheCommandLine, NamesEveryCommand) {
  QFile file(QStringLiteral(BRINDLE_SOURCE "/help/CommandLine.html"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const auto page = file.readAll().toStdString();
  for (const auto make : AllCommands()) {
    const auto name = make()->Text().name;
    EXPECT_TRUE(Has(page, "<dt>" + name) || Has(page, ", " + name)) << name;
  }
}

TEST(Manual, HasNoOtherCommand) {
  EXPECT_EQ(AllCommands().size(), 12U);
  EXPECT_EQ(Written("something else"), std::nullopt);
}

TEST(Manual, IsWrittenForTheBuild) {
  const CommandRunner runner;
  for (const auto* const kind : {"man", "bash", "zsh"}) {
    EXPECT_EQ(runner.Run(std::string("--write ") + kind).answer, *Written(kind));
  }
  EXPECT_EQ(runner.Run("--write else").code, 2);
}

}  // namespace
}  // namespace brindle
