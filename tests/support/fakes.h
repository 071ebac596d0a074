// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/file_dialogs.h"
#include "base/input/message_boxes.h"
#include "base/windows/desktop.h"
#include "base/windows/registry.h"

namespace brindle {

/// Message boxes that remember what they were asked and answer as told. A box that no answer was
/// prepared for fails the test.
class FakeBoxes : public MessageBoxes {
 public:
  struct Asked {
    QString text;
    BoxButtons buttons = BoxButtons::Ok;
  };

  std::optional<BoxAnswer> Ask(QWidget* owner, const QString& text, BoxButtons buttons) override {
    asked.push_back({text, buttons});
    owners.push_back(owner);
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected message box: " << text.toStdString();
      return std::nullopt;
    }
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::deque<std::optional<BoxAnswer>> answers;
  std::vector<Asked> asked;
  std::vector<QWidget*> owners;  ///< of the boxes asked
};

/// File dialogs that remember what they were opened with and give the prepared paths. A dialog that
/// no path was prepared for fails the test.
class FakeDialogs : public FileDialogs {
 public:
  QString AskForExisting(QWidget*, const FileQuestion& question) override { return Next(question); }
  QString AskForTarget(QWidget*, const FileQuestion& question, const QString& suffix) override {
    suffixes.push_back(suffix);
    return Next(question);
  }

  std::deque<QString> paths;  ///< an empty one is Cancel
  std::vector<FileQuestion> asked;
  std::vector<QString> suffixes;

 private:
  QString Next(const FileQuestion& question) {
    asked.push_back(question);
    if (paths.empty()) {
      ADD_FAILURE() << "unexpected file dialog: " << question.title.toStdString();
      return {};
    }
    const auto path = paths.front();
    paths.pop_front();
    return path;
  }
};

/// A desktop that remembers what it was asked for.
class FakeDesktop : public Desktop {
 public:
  void Beep() override { ++beeps; }
  void StartCalculator(QWidget* asker) override {
    ++calculators;
    askers.push_back(asker);
  }
  void OpenHelp(QWidget* asker, const QString& page) override {
    pages.push_back(page.toStdString());
    askers.push_back(asker);
  }
  void OpenAddress(QWidget* asker, const QString& address) override {
    addresses.push_back(address.toStdString());
    askers.push_back(asker);
  }

  int beeps = 0;
  int calculators = 0;
  std::vector<std::string> pages;
  std::vector<std::string> addresses;
  std::vector<QWidget*> askers;  ///< of everything but the beeps
};

/// A registry of one key with named values, which remembers what was done to it in order.
class FakeRegistry : public Registry {
 public:
  Result OpenKey(RegistryRoot, const QString& subKey, Key& opened) override {
    done.push_back("open " + subKey.toStdString());
    opened = subKey == key ? Opened : 0;
    return subKey == key ? 0 : FileNotFound;
  }
  Result DeleteValue(Key from, const QString& valueName) override {
    done.push_back((from == Opened ? "delete " : "delete from nothing ") + valueName.toStdString());
    if (isReadOnly) {
      return AccessDenied;
    }
    return from == Opened && values.erase(valueName) > 0 ? 0 : FileNotFound;
  }
  void CloseKey(Key which) override { done.push_back(which == Opened ? "close" : "close nothing"); }

  QString key;
  std::set<QString> values;
  bool isReadOnly = false;
  std::vector<std::string> done;

 private:
  static constexpr Key Opened = 7;
  static constexpr Result FileNotFound = 2;
  static constexpr Result AccessDenied = 5;
};

}  // namespace brindle
