// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/message_boxes.h"

#include <algorithm>
#include <vector>

#include <QMessageBox>
#include <QPushButton>
#include <QWidget>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

struct Button {
  QPushButton* button = nullptr;
  BoxAnswer answer = BoxAnswer::Ok;
};

// The buttons in the order in which they are shown.
std::vector<Button> AddButtons(QMessageBox& box, BoxButtons buttons) {
  // One role for all of them keeps them in this order on every desktop.
  const auto add = [&box](const char* caption) {
    return box.addButton(QString::fromLatin1(caption), QMessageBox::ActionRole);
  };
  switch (buttons) {
    case BoxButtons::Ok:
      return {{box.addButton(QMessageBox::Ok), BoxAnswer::Ok}};
    case BoxButtons::YesNo:
    case BoxButtons::YesNoDefaultNo:
      return {{box.addButton(QMessageBox::Yes), BoxAnswer::Yes},
              {box.addButton(QMessageBox::No), BoxAnswer::No}};
    case BoxButtons::CancelTryAgainContinue:
      return {{add("Cancel"), BoxAnswer::Cancel},
              {add("Try Again"), BoxAnswer::TryAgain},
              {add("Continue"), BoxAnswer::Continue}};
    case BoxButtons::FinishUndoLater:
      break;
  }
  return {{add("Finish"), BoxAnswer::Finish},
          {add("Undo"), BoxAnswer::Undo},
          {add("Later"), BoxAnswer::Later}};
}

bool IsLastDefault(BoxButtons buttons) {
  return buttons == BoxButtons::YesNoDefaultNo || buttons == BoxButtons::FinishUndoLater;
}

}  // namespace

void ScreenMessageBoxes::Ask(QWidget* owner, const QString& text, BoxButtons buttons,
                             const WhenAnswered& answered) {
  auto* box = new QMessageBox(owner);
  box->setObjectName(u"MessageBox"_s);
  box->setWindowTitle(u"Brindle"_s);
  box->setTextFormat(Qt::PlainText);
  box->setText(text);
  const auto added = AddButtons(*box, buttons);
  box->setDefaultButton((IsLastDefault(buttons) ? added.back() : added.front()).button);
  // Escape and the close button mean OK, No, Cancel or Later; the close button reports no clicked
  // button.
  const auto& escape = buttons == BoxButtons::CancelTryAgainContinue ? added.front() : added.back();
  box->setEscapeButton(escape.button);
  dialogs_.Open(box, [box, added, escape, answered](int) {
    const auto clicked = std::find_if(added.begin(), added.end(), [box](const Button& candidate) {
      return candidate.button == box->clickedButton();
    });
    answered(clicked == added.end() ? escape.answer : clicked->answer);
  });
}

}  // namespace brindle
