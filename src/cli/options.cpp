// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {
namespace {

const OptionText& HelpText() {
  static const OptionText text{.names = "-h,--help", .value = {}, .help = "Show this help"};
  return text;
}

}  // namespace

struct Options::Parser {
  CLI::App app;
};

std::vector<std::string> OptionText::Names() const {
  std::vector<std::string> list;
  std::string name;
  for (const char c : names + ',') {
    if (c == ',') {
      list.push_back(name);
      name.clear();
    } else {
      name += c;
    }
  }
  // The long name first, as people are told of it; short ones after it.
  std::stable_sort(list.begin(), list.end(), [](const auto& one, const auto& other) {
    return one.starts_with("--") && !other.starts_with("--");
  });
  return list;
}

Options::Options() : parser_(std::make_unique<Parser>()) {
  parser_->app.set_help_flag(HelpText().names);
  parser_->app.allow_windows_style_options(false);
}

Options::~Options() = default;

std::vector<OptionText> Options::All() const {
  auto all = texts_;
  all.push_back(HelpText());
  return all;
}

void Options::List(const OptionText& text) {
  if (!text.isHidden) {
    texts_.push_back(text);
  }
}

void Options::AddTexts(const OptionText& text, const std::function<Fault(const Texts&)>& take) {
  List(text);
  const auto name = text.Names().front();
  const auto takeOrThrow = [take, name](const Texts& texts) {
    if (const auto fault = take(texts)) {
      throw CLI::ValidationError(name + " " + *fault);
    }
  };
  auto* option = parser_->app.add_option_function<Texts>(text.names, takeOrThrow);
  // An option takes one value each time that it is given, so that what follows is not swallowed.
  if (text.IsOption()) {
    option->expected(1, 1)->allow_extra_args(false)->multi_option_policy(
        CLI::MultiOptionPolicy::TakeAll);
  }
}

void Options::AddFlag(const OptionText& text, bool& value) {
  List(text);
  parser_->app.add_flag_callback(text.names, [&value] { value = true; })->disable_flag_override();
}

void Options::AddFlag(const OptionText& text, std::optional<std::string>& value) {
  List(text);
  const auto take = [&value](const std::vector<std::string>& texts) {
    value = texts.back() == "true" ? std::string() : texts.back();
    return true;
  };
  auto* option = parser_->app.add_flag(text.names);
  option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  option->each([take](const std::string& one) { static_cast<void>(take({one})); });
}

void Options::AddFiles(const OptionText& text, std::vector<std::string>& files) {
  AddTexts(text, [&files](const Texts& texts) {
    files = texts;
    return Fault();
  });
  required_ = &files;
}

void Options::Exclude(const std::string& one, const std::string& other) {
  parser_->app.get_option(one)->excludes(other);
}

Reading<bool> Options::Parse(const std::vector<std::string>& arguments) {
  auto& app = parser_->app;
  // What is not expected is told here, by its first word, however much of it there is.
  app.allow_extras();
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    return true;
  } catch (const CLI::ValidationError& error) {
    return tl::unexpected(std::string(error.what()));
  } catch (const CLI::ArgumentMismatch& error) {
    const std::string text = error.what();
    // Of a flag that was given one, the library knows no better than this.
    const auto flag = text.find(" was given a disallowed flag override");
    return tl::unexpected(flag != std::string::npos
                              ? "--" + text.substr(0, flag) + " takes no value"
                              : text.substr(0, text.find(':')) + " needs a value");
  } catch (const CLI::ExcludesError& error) {
    std::string text = error.what();
    constexpr std::string_view between = " excludes ";
    text.replace(text.find(between), between.size(), " and ");
    return tl::unexpected(text + " cannot be given together");
  } catch (const CLI::ParseError& error) {
    return tl::unexpected(std::string(error.what()));
  }
  const auto rest = app.remaining();
  const auto extra =
      std::find_if(rest.begin(), rest.end(), [](const std::string& word) { return word != "--"; });
  if (extra != rest.end()) {
    const bool isOption = extra->size() > 1 && extra->starts_with('-');
    return tl::unexpected((isOption ? "there is no option " : "not expected here: ") +
                          Quoted(*extra));
  }
  if (required_ != nullptr && required_->empty()) {
    return tl::unexpected(std::string("FILE is missing"));
  }
  return false;
}

}  // namespace brindle
