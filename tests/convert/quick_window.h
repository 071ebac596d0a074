// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>

#include <QRadioButton>
#include <QString>

#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The names of the converter's fields: those of the running time, then those of the size.
inline constexpr std::array TimeNames{"Time1", "Time2", "Time3", "Min", "Frames"};
inline constexpr std::array SizeNames{"B", "KB", "MB", "GB"};
inline constexpr std::array FieldNames{"Time1", "Time2", "Time3", "Min", "Frames",
                                       "B",     "KB",    "MB",    "GB"};

/// The quick converter, open, with its controls at hand.
class QuickWindow : public RecordingWindow {
 protected:
  QuickWindow()
      : RecordingWindow(WindowId::QuickC, {{"MovieLength", &Settings::MovieLength},
                                           {"QuickSizeMB", &Settings::QuickSizeMB}}) {}

  [[nodiscard]] TextField* FieldNamed(const std::string& name) const {
    return Field(QString::fromStdString(name));
  }

  /// The running time as the fields show it: "1:40:00.00 100 150000".
  [[nodiscard]] std::string Time() const {
    return Duration() + " " + Text("Min") + " " + Text("Frames");
  }

  /// The size as the fields show it: "1048576|1024|1|0.0009765625".
  [[nodiscard]] std::string Size() const {
    return Text("B") + "|" + Text("KB") + "|" + Text("MB") + "|" + Text("GB");
  }

  /// The names of the fields that are not empty.
  [[nodiscard]] std::set<std::string> Filled() const {
    std::set<std::string> names;
    for (const auto* name : FieldNames) {
      if (!Text(name).empty()) {
        names.insert(name);
      }
    }
    return names;
  }

  /// Whether every field is empty or holds a number.
  [[nodiscard]] bool ShowsOnlyNumbers() const {
    for (const auto* name : FieldNames) {
      if (!Text(name).empty() && !IsNumeric(Text(name))) {
        return false;
      }
    }
    return true;
  }

  /// The index of the selected frame-rate system, -1 if there is none.
  [[nodiscard]] int SelectedSystem() const {
    for (std::size_t i = 0; i < Systems.size(); ++i) {
      if (Systems.at(i)->isChecked()) {
        return static_cast<int>(i);
      }
    }
    return -1;
  }

  /// Types over the contents of the field; an empty text means deleting.
  void Enter(const std::string& name, const std::string& text) {
    FieldNamed(name)->setFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    if (text.empty()) {
      Key(Qt::Key_Delete);
    }
    Type(QString::fromStdString(text));
  }

  void PasteOver(const std::string& name, const QString& text) {
    FieldNamed(name)->setFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    Paste(text);
  }

  /// Moves the focus away to a control that has no handler for it.
  void Leave() { Systems.front()->setFocus(); }

  /// A recomputation is visible in what it stores.
  void ArmRecomputation() {}

  std::array<QRadioButton*, 3> Systems{};

 private:
  void FindControls() override {
    Take(Systems[0], "System(0)");
    Take(Systems[1], "System(1)");
    Take(Systems[2], "System(2)");
  }
};

}  // namespace brindle
