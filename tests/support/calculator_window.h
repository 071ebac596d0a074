// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "base/input/editable_list.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "tests/support/user.h"
#include "tests/support/window_test.h"

namespace brindle {

using Names = std::set<std::string>;

/// A value of the settings record, by the name of its field.
struct RecordValue {
  std::string name;
  std::variant<double Settings::*, std::int16_t Settings::*> field;
};

/// A test of one calculator window, which reads the controls as a user sees them.
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

  /// The running time as its three fields show it: "1:40:00.00".
  [[nodiscard]] std::string Duration() const {
    return Text("Time1") + ":" + Text("Time2") + ":" + Text("Time3");
  }

  /// The field or text part of this name.
  [[nodiscard]] TextField* Field(const QString& name) const {
    auto* control = Find(window, name);
    auto* list = qobject_cast<EditableList*>(control);
    return list != nullptr ? list->Field() : qobject_cast<TextField*>(control);
  }
  [[nodiscard]] SpinButton* Spin(const QString& name) const {
    return Find<SpinButton>(window, name);
  }

  /// The entries of a list: "1 2 3 4".
  [[nodiscard]] static std::string EntriesOf(const QComboBox* list,
                                             const std::string& separator = " ") {
    std::string texts;
    for (int i = 0; i < list->count(); ++i) {
      texts += (i == 0 ? "" : separator) + list->itemText(i).toStdString();
    }
    return texts;
  }

  [[nodiscard]] bool IsEnabled(const QString& name) const {
    return Find(window, name)->isEnabled();
  }
  [[nodiscard]] bool IsChecked(const QString& name) const {
    return Find<QAbstractButton>(window, name)->isChecked();
  }

  /// Clicks an option or a box.
  void Choose(const QString& name) const { Click(Find(window, name)); }

  QPointer<QWidget> window;
};

/// A test of one calculator window that tracks what the window writes into the record.
class RecordingWindow : public CalculatorWindow {
 protected:
  /// `values` are those that the window may write.
  RecordingWindow(WindowId id, std::vector<RecordValue> values)
      : id_(id), values_(std::move(values)) {}

  void OpenCalculator() {
    window = Open(id_);
    FindControls();
  }

  template <class Control>
  void Take(Control*& control, const char* name) {
    control = Find<Control>(window, QString::fromLatin1(name));
  }

  /// Marks the values that the window may write; Written() gives those written since.
  void Forget() {
    for (const auto& value : values_) {
      std::visit([this](auto field) { record.*field = Untouched(record.*field); }, value.field);
    }
  }
  [[nodiscard]] std::map<std::string, double> Written() const {
    std::map<std::string, double> written;
    for (const auto& [name, member] : values_) {
      const bool isWritten = std::visit(
          [this](auto field) { return record.*field != Untouched(record.*field); }, member);
      if (isWritten) {
        written[name] =
            std::visit([this](auto field) { return static_cast<double>(record.*field); }, member);
      }
    }
    return written;
  }
  /// The names of the values written since.
  [[nodiscard]] Names Stored() const {
    Names names;
    for (const auto& [name, value] : Written()) {
      names.insert(name);
    }
    return names;
  }

 private:
  /// Finds the controls that the tests use, after the window has been opened.
  virtual void FindControls() {}

  // No window computes this number from the figures of a test.
  static double Untouched(double) { return 7.25; }
  static std::int16_t Untouched(std::int16_t) { return 77; }

  WindowId id_;
  std::vector<RecordValue> values_;
};

}  // namespace brindle
