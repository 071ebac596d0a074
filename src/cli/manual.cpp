// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/manual.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/completions.h"
#include "cli/options.h"

namespace brindle {
namespace {

constexpr std::size_t LineWidth = 79;
constexpr std::size_t HelpColumn = 28;

constexpr std::string_view Version = "2.91";
constexpr std::string_view Summary =
    "calculators for video that must fit a disc or a size, and a WAV normalizer";
constexpr std::string_view Numbers = "Decimals are written with a period, in every language.";

struct Kind {
  std::string_view value;
  std::string_view text;
};
// What the words for values stand for, where that takes more than a word.
constexpr std::array Kinds{
    Kind{"SIZE",
         "A SIZE is in megabytes (700) or has a unit: 700MB, 4.7GB, 716800KB, 734003200B. One KB "
         "is 1024 bytes, one MB 1024 KB and one GB 1024 MB, as in the windows; KiB, MiB and GiB "
         "mean the same."},
    Kind{"DURATION",
         "A DURATION is in minutes (102.5), in hours, minutes and seconds (1:42:30, 1:42:30.5), "
         "or in frames (153750f), which are counted at the frame rate."},
    Kind{"RATE",
         "A RATE is in frames per second (25, 23.976), or one of pal (25), film (23.976) and ntsc "
         "(29.97)."},
};

struct Code {
  std::string_view number;
  std::string_view text;
};
constexpr std::array Codes{
    Code{"0", "answered"},
    Code{"1", "failed: a file or a disk"},
    Code{"2", "wrong usage"},
    Code{"3", "there is no answer; the message says why, and what would make it possible"},
    Code{"130", "interrupted"},
};

std::vector<std::string> Wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  std::string line;
  std::string word;
  const auto endWord = [&] {
    if (!line.empty() && line.size() + 1 + word.size() > width) {
      lines.push_back(line);
      line.clear();
    }
    line.append(line.empty() ? "" : " ").append(word);
    word.clear();
  };
  for (const char c : text) {
    c == ' ' ? endWord() : word.push_back(c);
  }
  endWord();
  lines.push_back(line);
  return lines;
}

std::string Paragraph(std::string_view text) {
  std::string paragraph;
  for (const auto& line : Wrapped(text, LineWidth)) {
    paragraph += line + "\n";
  }
  return paragraph;
}

// "  TERM    explanation", the explanation wrapped in its column.
std::string Entry(const std::string& term, std::string_view explanation) {
  std::string entry = "  " + term;
  const std::string margin(HelpColumn, ' ');
  bool isFirst = true;
  for (const auto& line : Wrapped(explanation, LineWidth - HelpColumn)) {
    if (isFirst && entry.size() + 2 <= HelpColumn) {
      entry += std::string(HelpColumn - entry.size(), ' ') + line + "\n";
    } else {
      entry.append(isFirst ? "\n" : "").append(margin).append(line).append("\n");
    }
    isFirst = false;
  }
  return entry;
}

std::string Explanation(const OptionText& option) {
  return option.help + (option.byDefault.empty() ? "" : " (" + option.byDefault + ")");
}

std::string Usage(const CommandText& command, const std::vector<OptionText>& options) {
  std::string usage = "brindle " + command.name + " [OPTION]...";
  for (const auto& option : options) {
    if (!option.IsOption()) {
      usage += option.isSingle    ? " " + option.names
               : option.takesFile ? " " + option.names + "..."
                                  : " [" + option.names + "]";
    }
  }
  return usage;
}

// The explanations of the kinds of values that these options have.
std::vector<std::string_view> KindsOf(const std::vector<OptionText>& options) {
  std::vector<std::string_view> texts;
  for (const auto& kind : Kinds) {
    if (std::any_of(options.begin(), options.end(), [&](const OptionText& option) {
          return option.value == kind.value || option.names == kind.value;
        })) {
      texts.push_back(kind.text);
    }
  }
  return texts;
}

std::vector<CommandPage> AllPages() {
  std::vector<CommandPage> pages;
  for (const auto make : AllCommands()) {
    const auto command = make();
    pages.push_back({command->Text(), OptionsOf(*command)});
  }
  return pages;
}

std::string Roff(std::string_view text) {
  std::string roff;
  for (const char c : text) {
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else if ((c == '.' || c == '\'') && (roff.empty() || roff.back() == '\n')) {
      roff += std::string("\\&") + c;
    } else {
      roff += c;
    }
  }
  return roff;
}

std::string ManualOf(const CommandPage& page) {
  std::string manual =
      ".SS \"" + Roff(Usage(page.text, page.options)) + "\"\n" + Roff(page.text.description) + "\n";
  for (const auto& option : page.options) {
    manual += ".TP\n\\fB" + Roff(Joined(option.Names(), ", ")) + "\\fR" +
              (option.value.empty() ? "" : " \\fI" + Roff(option.value) + "\\fR") + "\n" +
              Roff(Explanation(option)) + ".\n";
  }
  manual += ".PP\nExample:\n.PP\n.nf\n.RS\n$ " + Roff(page.text.example) + "\n";
  for (const auto& line : page.text.exampleOutput) {
    manual += Roff(line) + "\n";
  }
  return manual + ".RE\n.fi\n";
}

std::string Manual() {
  std::string manual =
      ".\\\" SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors\n"
      ".\\\" SPDX-License-Identifier: MIT\n"
      ".TH BRINDLE 1 2026-11-22 \"Brindle " +
      std::string(Version) + "\" \"User Commands\"\n" + ".SH NAME\nbrindle \\- " + Roff(Summary) +
      "\n.SH SYNOPSIS\n.B brindle\n.I COMMAND\n[\\fIOPTION\\fR]...\n.br\n"
      ".B brindle\n[\\fB\\-\\-help\\fR|\\fB\\-\\-version\\fR]\n.SH DESCRIPTION\n"
      "Has every calculator of\n.BR brindle2 (1)\n"
      "and its WAV normalizer as a command, for shells and scripts. An answer is one line for "
      "people, then lines with details; with \\fB\\-\\-json\\fR it is one JSON object for "
      "programs. Nothing but the answer is written to the standard output.\n";
  for (const auto& kind : Kinds) {
    manual += ".PP\n" + Roff(kind.text) + "\n";
  }
  manual += ".PP\n" + Roff(Numbers) +
            "\n.PP\nWithout an option, the value in parentheses counts, which is the one that the "
            "windows come with, or with \\fB\\-\\-settings\\fR the user\\(aqs own.\n.SH COMMANDS\n";
  for (const auto& page : AllPages()) {
    manual += ManualOf(page);
  }
  manual += ".SH EXIT STATUS\n";
  for (const auto& code : Codes) {
    manual += ".TP\n.B " + std::string(code.number) + "\n" + Roff(code.text) + "\n";
  }
  return manual +
         ".SH FILES\n.TP\n.I ~/.config/brindle2/Brindle2.ini\nThe settings that the windows "
         "saved.\n.TP\n.I ~/.local/state/brindle2\nWhat it takes to undo a normalization in "
         "place.\n.SH SEE ALSO\n.BR brindle2 (1)\n";
}

}  // namespace

std::string VersionText() { return "brindle " + std::string(Version) + "\n"; }

std::string HelpText() {
  std::string help = "Usage: brindle COMMAND [OPTION]...\n       brindle --help | --version\n\n" +
                     Paragraph("Brindle: " + std::string(Summary) + ".") + "\nCommands:\n";
  for (const auto make : AllCommands()) {
    const auto text = make()->Text();
    help += Entry(text.name, text.summary);
  }
  help += "\nbrindle COMMAND --help shows the options of a command, with an example.\n\n";
  for (const auto& kind : Kinds) {
    help += Paragraph(kind.text);
  }
  help += std::string(Numbers) + "\n\nExit codes:\n";
  for (const auto& code : Codes) {
    help += Entry(std::string(code.number), code.text);
  }
  return help;
}

std::string HelpOf(const CommandText& command, const std::vector<OptionText>& options) {
  std::string help = "Usage: " + Usage(command, options) + "\n\n" + Paragraph(command.description) +
                     "\nOptions:\n";
  for (const auto& option : options) {
    help += Entry(Joined(option.Names(), ", ") + (option.value.empty() ? "" : " " + option.value),
                  Explanation(option));
  }
  help += "\n";
  for (const auto kind : KindsOf(options)) {
    help += Paragraph(kind);
  }
  help += std::string(Numbers) + "\n\nExample:\n  $ " + command.example + "\n";
  for (const auto& line : command.exampleOutput) {
    help += "  " + line + "\n";
  }
  return help;
}

std::optional<std::string> Written(std::string_view kind) {
  if (kind == "man") {
    return Manual();
  }
  if (kind == "bash") {
    return BashCompletion(AllPages());
  }
  return kind == "zsh" ? std::optional(ZshCompletion(AllPages())) : std::nullopt;
}

}  // namespace brindle
