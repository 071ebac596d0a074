// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/completions.h"

#include <string>
#include <string_view>
#include <vector>

#include "cli/options.h"

namespace brindle {

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const auto& text : texts) {
    joined.append(joined.empty() ? "" : separator).append(text);
  }
  return joined;
}

namespace {

// What follows an option that has a value.
std::string BashValue(const OptionText& option) {
  std::string lines = "        " + Joined(option.Names(), "|") + ")\n          ";
  if (option.takesFile) {
    lines += R"(compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$word"))";
  } else {
    lines.append("mapfile -t COMPREPLY < <(compgen -W '")
        .append(Joined(option.words, " "))
        .append(R"(' -- "$word"))");
  }
  return lines + "\n          return ;;\n";
}

std::string BashCommand(const CommandPage& page) {
  std::vector<std::string> names;
  std::string values;
  bool takesFiles = false;
  for (const auto& option : page.options) {
    if (option.IsOption()) {
      names.push_back(Joined(option.Names(), " "));
      values += option.value.empty() ? "" : BashValue(option);
    } else {
      takesFiles = option.takesFile;
    }
  }
  std::string lines = "    " + page.text.name + ")\n";
  if (!values.empty()) {
    lines.append("      case $before in\n").append(values).append("      esac\n");
  }
  return lines.append("      options='")
      .append(Joined(names, " "))
      .append("'\n      files=")
      .append(takesFiles ? "1" : "")
      .append(" ;;\n");
}

}  // namespace

std::string BashCompletion(const std::vector<CommandPage>& pages) {
  std::string names;
  std::string cases;
  for (const auto& page : pages) {
    names += page.text.name + " ";
    cases += BashCommand(page);
  }
  std::string script = R"(# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
# Completion of brindle(1) for bash.
_brindle() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options= files=
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W ')";
  script.append(names).append(R"(--help --version' -- "$word")
    return
  fi
  case ${COMP_WORDS[1]} in
)");
  return script.append(cases).append(R"(  esac
  if [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  elif [ -n "$files" ]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _brindle brindle
)");
}

namespace {

// A text within single quotes and within the brackets of an option's description.
std::string ZshText(std::string_view text) {
  std::string zsh;
  for (const char c : text) {
    if (c == '\'') {
      zsh += "'\\''";
    } else if (c == '[' || c == ']' || c == ':' || c == '\\') {
      zsh += std::string("\\") + c;
    } else {
      zsh += c;
    }
  }
  return zsh;
}

std::string ZshOption(const OptionText& option) {
  const std::string value =
      option.takesFile       ? ":" + ZshText(option.value) + ":_files"
      : option.value.empty() ? ""
      : option.words.empty() ? ":" + option.value + ": "
                             : ":" + option.value + ":(" + ZshText(Joined(option.words, " ")) + ")";
  std::string lines;
  if (!option.IsOption()) {
    return option.takesFile ? "        '*:" + option.names + ":_files'"
                            : "        '::" + option.names + ": '";
  }
  for (const auto& name : option.Names()) {
    lines.append(lines.empty() ? "" : " \\\n").append("        '*").append(name).append("[");
    lines.append(ZshText(option.help)).append("]").append(value).append("'");
  }
  return lines;
}

}  // namespace

std::string ZshCompletion(const std::vector<CommandPage>& pages) {
  std::string names;
  std::string cases;
  for (const auto& page : pages) {
    names += "    '" + page.text.name + ":" + ZshText(page.text.summary) + "'\n";
    std::vector<std::string> options;
    for (const auto& option : page.options) {
      options.push_back(ZshOption(option));
    }
    cases +=
        "    " + page.text.name + ")\n      _arguments \\\n" + Joined(options, " \\\n") + " ;;\n";
  }
  return "#compdef brindle\n"
         "# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors\n"
         "# SPDX-License-Identifier: MIT\n"
         "# Completion of brindle(1) for zsh.\n"
         "local -a commands\n"
         "commands=(\n" +
         names +
         ")\n"
         "if (( CURRENT == 2 )); then\n"
         "  _describe command commands\n"
         "  _arguments '--help[Show this help]' '--version[Show the version]'\n"
         "else\n"
         "  shift words\n"
         "  (( CURRENT-- ))\n"
         "  case $words[1] in\n" +
         cases +
         "  esac\n"
         "fi\n";
}

}  // namespace brindle
