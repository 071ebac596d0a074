// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QString>
#include <QWidget>

#include "app/input/editable_list.h"
#include "app/input/spin_button.h"
#include "app/input/text_field.h"
#include "tests/support/window_test.h"

namespace brindle {

/// The video bitrate calculator, open, with its controls at hand as a user sees them.
class BitrateWindow : public WindowTest {
 protected:
  void OpenCalculator() {
    window = Open(WindowId::BitrateCalc);
    Audio = Find<EditableList>(window, QStringLiteral("Audio"));
    CDs = Find<EditableList>(window, QStringLiteral("CDs"));
    Capacity = Find<EditableList>(window, QStringLiteral("Capacity"));
    MLength = Find<TextField>(window, QStringLiteral("MLength"));
    Extra = Find<TextField>(window, QStringLiteral("Extra"));
    Time1 = Find<TextField>(window, QStringLiteral("Time1"));
    Time2 = Find<TextField>(window, QStringLiteral("Time2"));
    Time3 = Find<TextField>(window, QStringLiteral("Time3"));
    MLengthP = Find<SpinButton>(window, QStringLiteral("MLengthP"));
    MLengthM = Find<SpinButton>(window, QStringLiteral("MLengthM"));
    ExtraP = Find<SpinButton>(window, QStringLiteral("ExtraP"));
    ExtraM = Find<SpinButton>(window, QStringLiteral("ExtraM"));
    DivX3 = Find<QRadioButton>(window, QStringLiteral("DivX(0)"));
    DivX4 = Find<QRadioButton>(window, QStringLiteral("DivX(1)"));
    Result = Find<QLineEdit>(window, QStringLiteral("Result"));
  }

  /// The text of a field, list or label.
  [[nodiscard]] std::string Text(const QString& name) const {
    auto* control = Find(window, name);
    if (auto* list = qobject_cast<EditableList*>(control)) {
      return list->Field()->text().toStdString();
    }
    if (auto* field = qobject_cast<QLineEdit*>(control)) {
      return field->text().toStdString();
    }
    return qobject_cast<QLabel*>(control)->text().toStdString();
  }
  [[nodiscard]] std::string Text(const char* name) const { return Text(QString::fromLatin1(name)); }

  /// The running time as the three fields show it: "1:40:00.00".
  [[nodiscard]] std::string Time() const {
    return Text("Time1") + ":" + Text("Time2") + ":" + Text("Time3");
  }

  /// The field or text part of this name.
  [[nodiscard]] TextField* Field(const QString& name) const {
    auto* control = Find(window, name);
    auto* list = qobject_cast<EditableList*>(control);
    return list != nullptr ? list->Field() : qobject_cast<TextField*>(control);
  }

  /// Makes the next recomputation visible: Stat(2) shows another size then.
  void ArmRecomputation() { record.VideoFrameOverhead += 50; }

  QPointer<QWidget> window;
  EditableList* Audio = nullptr;
  EditableList* CDs = nullptr;
  EditableList* Capacity = nullptr;
  TextField* MLength = nullptr;
  TextField* Extra = nullptr;
  TextField* Time1 = nullptr;
  TextField* Time2 = nullptr;
  TextField* Time3 = nullptr;
  SpinButton* MLengthP = nullptr;
  SpinButton* MLengthM = nullptr;
  SpinButton* ExtraP = nullptr;
  SpinButton* ExtraM = nullptr;
  QRadioButton* DivX3 = nullptr;
  QRadioButton* DivX4 = nullptr;
  QLineEdit* Result = nullptr;
};

}  // namespace brindle
