// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/reading.h"

namespace brindle {

/// What a person reads about an option, from which its help, the manual page and the completions
/// are made.
struct OptionText {
  std::string names;  ///< "--size,--capacity"; the name alone for an argument without dashes
  std::string value;  ///< what follows it ("SIZE"); empty for an option that stands alone
  std::string help;   ///< a sentence without a period
  std::string byDefault = {};           ///< without the option
  std::vector<std::string> words = {};  ///< values to complete
  bool takesFile = false;               ///< its value is a path
  bool isSingle = false;                ///< an argument without dashes that is given once
  bool isHidden = false;                ///< for the program with windows; people are not told of it

  [[nodiscard]] bool IsOption() const { return names.starts_with('-'); }
  /// One by one.
  [[nodiscard]] std::vector<std::string> Names() const;
};

/// The options of one command.
class Options {
 public:
  Options();
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  Options(Options&&) = delete;
  Options& operator=(Options&&) = delete;
  ~Options();

  /// An option, or an argument without dashes, that may be given once.
  template <class Value>
  void Add(const OptionText& text, std::optional<Value>& value,
           Reading<Value> (*read)(std::string_view)) {
    AddTexts(text, [&value, read](const Texts& texts) {
      if (texts.size() > 1) {
        return Fault("is given more than once");
      }
      return Taken(read(texts.front()), [&value](Value taken) { value = taken; });
    });
  }

  /// An option that may be given again and again.
  template <class Value>
  void AddList(const OptionText& text, std::vector<Value>& values,
               Reading<Value> (*read)(std::string_view)) {
    AddTexts(text, [&values, read](const Texts& texts) {
      for (const auto& one : texts) {
        if (auto fault = Taken(read(one), [&values](Value taken) { values.push_back(taken); })) {
          return fault;
        }
      }
      return Fault();
    });
  }

  /// An option without a value.
  void AddFlag(const OptionText& text, bool& value);
  /// An option that may have a value: "--settings" and "--settings=FILE".
  void AddFlag(const OptionText& text, std::optional<std::string>& value);
  /// The paths that a command works on, one at least.
  void AddFiles(const OptionText& text, std::vector<std::string>& files);
  /// The two, by one of their names, may not be given together.
  void Exclude(const std::string& one, const std::string& other);

  /// Reads the arguments. True if the help is asked for; an error says what is wrong.
  [[nodiscard]] Reading<bool> Parse(const std::vector<std::string>& arguments);

  /// In the order in which they were added; --help is the last one.
  [[nodiscard]] std::vector<OptionText> All() const;

 private:
  using Texts = std::vector<std::string>;
  // What is wrong with a value; nothing if it was taken.
  using Fault = std::optional<std::string>;
  struct Parser;

  void List(const OptionText& text);
  void AddTexts(const OptionText& text, const std::function<Fault(const Texts&)>& take);

  template <class Value, class Take>
  static Fault Taken(const Reading<Value>& reading, const Take& take) {
    if (!reading) {
      return reading.error();
    }
    take(*reading);
    return std::nullopt;
  }

  std::unique_ptr<Parser> parser_;
  std::vector<OptionText> texts_;
  const std::vector<std::string>* required_ = nullptr;  // must not be empty
};

}  // namespace brindle
