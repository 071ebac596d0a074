// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "base/input/editable_list.h"
#include "base/input/text_field.h"
#include "tests/support/window_test.h"

namespace brindle {

/// A test of one calculator window, whose controls it reads as a user sees them.
class CalculatorWindow : public WindowTest {
 protected:
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

  /// The field or text part of this name.
  [[nodiscard]] TextField* Field(const QString& name) const {
    auto* control = Find(window, name);
    auto* list = qobject_cast<EditableList*>(control);
    return list != nullptr ? list->Field() : qobject_cast<TextField*>(control);
  }

  [[nodiscard]] bool IsEnabled(const QString& name) const {
    return Find(window, name)->isEnabled();
  }
  [[nodiscard]] bool IsChecked(const QString& name) const {
    return Find<QAbstractButton>(window, name)->isChecked();
  }

  QPointer<QWidget> window;
};

}  // namespace brindle
