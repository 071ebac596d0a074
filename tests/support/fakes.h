// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/file_dialogs.h"
#include "base/input/form.h"
#include "base/input/message_boxes.h"
#include "base/windows/desktop.h"
#include "base/windows/registry.h"

namespace brindle {

/// Message boxes that remember each question and give the answers that the test has prepared, each
/// after an action that runs while the box is open. A box that was not prepared fails the test.
class FakeBoxes : public MessageBoxes {
 public:
  struct Asked {
    std::string text;
    BoxButtons buttons = BoxButtons::Ok;
    QWidget* owner = nullptr;
  };

  /// The next box gets this answer, after `meanwhile` has run. No answer means that the program
  /// ended; a box whose owner was closed meanwhile gets no answer either.
  void Answer(std::optional<BoxAnswer> answer, std::function<void()> meanwhile = {}) {
    prepared_.push_back({answer, std::move(meanwhile)});
  }

  void Ask(QWidget* owner, const QString& text, BoxButtons buttons,
           const WhenAnswered& answered) override {
    asked.push_back({text.toStdString(), buttons, owner});
    if (prepared_.empty()) {
      ADD_FAILURE() << "unexpected message box: " << text.toStdString();
      return;
    }
    const auto next = prepared_.front();
    prepared_.pop_front();
    bool isClosed = false;
    QObject box;
    if (auto* form = qobject_cast<Form*>(owner)) {
      QObject::connect(form, &Form::Closed, &box, [&] { isClosed = true; });
    }
    if (next.meanwhile) {
      next.meanwhile();
    }
    if (next.answer && !isClosed) {
      answered(*next.answer);
    }
  }

  [[nodiscard]] bool AllAsked() const { return prepared_.empty(); }

  std::vector<Asked> asked;

 private:
  struct Prepared {
    std::optional<BoxAnswer> answer;
    std::function<void()> meanwhile;
  };
  std::deque<Prepared> prepared_;
};

/// File dialogs that remember how they were opened and return the prepared paths. A dialog without
/// a prepared path fails the test.
class FakeDialogs : public FileDialogs {
 public:
  void AskForExisting(QWidget*, const FileQuestion& question, const WhenChosen& chosen) override {
    Next(question, chosen);
  }
  void AskForTarget(QWidget*, const FileQuestion& question, const QString& suffix,
                    const WhenChosen& chosen) override {
    suffixes.push_back(suffix);
    Next(question, chosen);
  }

  void AskForFolder(QWidget*, const FileQuestion& question, const WhenChosen& chosen) override {
    Next(question, chosen);
  }

  std::deque<QString> paths;  ///< an empty path means Cancel
  std::vector<FileQuestion> asked;
  std::vector<QString> suffixes;

 private:
  void Next(const FileQuestion& question, const WhenChosen& chosen) {
    asked.push_back(question);
    if (paths.empty()) {
      ADD_FAILURE() << "unexpected file dialog: " << question.title.toStdString();
      return;
    }
    const auto path = paths.front();
    paths.pop_front();
    if (!path.isEmpty()) {
      chosen(path);
    }
  }
};

/// A desktop that remembers every request.
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
  std::vector<QWidget*> askers;  ///< of every request except the beeps
};

/// A registry of one key with named values, which remembers every call in order.
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
