// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <optional>
#include <vector>

#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "app/input/file_dialogs.h"
#include "app/input/message_boxes.h"
#include "app/windows/desktop.h"

namespace brindle {

/// Message boxes that remember what they were asked and answer as told. A box that no answer was
/// prepared for fails the test.
class FakeBoxes : public MessageBoxes {
 public:
  struct Asked {
    QString text;
    BoxButtons buttons = BoxButtons::Ok;
  };

  std::optional<BoxAnswer> Ask(QWidget*, const QString& text, BoxButtons buttons) override {
    asked.push_back({text, buttons});
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

class FakeDesktop : public Desktop {
 public:
  void Beep() override { ++beeps; }

  int beeps = 0;
};

}  // namespace brindle
