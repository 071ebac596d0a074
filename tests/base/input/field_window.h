// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QString>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "tests/support/user.h"

namespace brindle {

/// A window with two fields and a list that records its events in the order in which they run.
class FieldWindow : public Form {
  Q_OBJECT

 public:
  FieldWindow() : Form(QStringLiteral("FieldWindow"), QStringLiteral("Fields")) {
    auto* column = new QVBoxLayout(this);
    for (QWidget* control : std::initializer_list<QWidget*>{A, B, L, S}) {
      column->addWidget(control);
    }
    const Wires on(this);
    on(A)
        .GotFocus(&FieldWindow::A_GotFocus)
        .LostFocus(&FieldWindow::A_LostFocus)
        .KeyPress(&FieldWindow::A_KeyPress)
        .KeyUp(&FieldWindow::A_KeyUp)
        .MouseDown(&FieldWindow::A_MouseDown)
        .MouseUp(&FieldWindow::A_MouseUp);
    on(B).GotFocus(&FieldWindow::B_GotFocus).LostFocus(&FieldWindow::B_LostFocus);
    on(L)
        .GotFocus(&FieldWindow::L_GotFocus)
        .LostFocus(&FieldWindow::L_LostFocus)
        .KeyPress(&FieldWindow::L_KeyPress)
        .KeyUp(&FieldWindow::L_KeyUp)
        .MouseDown(&FieldWindow::L_MouseDown)
        .Click(&FieldWindow::L_Click);
  }

  /// Shows the window with the focus in B and forgets the events that this causes.
  void Start() {
    Focus().Begin(B);
    show();
    activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(this, 10000));
    events.clear();
  }

  std::vector<std::string> events;
  TextField* A = new TextField(QStringLiteral("A"), {});
  TextField* B = new TextField(QStringLiteral("B"), {});
  EditableList* L = new EditableList(QStringLiteral("L"), {});
  SpinButton* S = new SpinButton(QStringLiteral("S"), SpinDirection::Plus);
  bool selectOnFocus = false;

 private:
  void A_GotFocus() {
    events.emplace_back("A got");
    if (selectOnFocus) {
      A->selectAll();
    }
  }
  void A_LostFocus() { events.emplace_back("A lost"); }
  void A_KeyPress() { events.push_back("A press " + A->text().toStdString()); }
  void A_KeyUp() { events.push_back("A up " + A->text().toStdString()); }
  void A_MouseDown() { events.emplace_back("A mouse down"); }
  void A_MouseUp() { events.emplace_back("A mouse up"); }
  void B_GotFocus() { events.emplace_back("B got"); }
  void B_LostFocus() { events.emplace_back("B lost"); }
  void L_GotFocus() { events.emplace_back("L got"); }
  void L_LostFocus() { events.emplace_back("L lost"); }
  void L_KeyPress() { events.push_back("L press " + L->Field()->text().toStdString()); }
  void L_KeyUp() { events.push_back("L up " + L->Field()->text().toStdString()); }
  void L_MouseDown() { events.emplace_back("L mouse down"); }
  void L_Click() { events.push_back("L click " + L->Field()->text().toStdString()); }
};

using Events = std::vector<std::string>;

}  // namespace brindle
