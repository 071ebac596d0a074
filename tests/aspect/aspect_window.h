// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/drop_down_list.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"
#include "tests/support/user.h"

namespace brindle {

/// The resolution and aspect-ratio calculator, open, with its controls at hand.
class AspectWindow : public RecordingWindow {
 protected:
  AspectWindow() : RecordingWindow(WindowId::AspectRa, {}) {}

  void OpenFree(int width, int height) {
    record.AspectMode = 0;
    record.ResHorizontal = static_cast<std::int16_t>(width);
    record.ResVertical = static_cast<std::int16_t>(height);
    OpenCalculator();
  }

  void OpenStandard(int index, int width) {
    record.AspectMode = 1;
    record.StandardAspect = static_cast<std::int16_t>(index);
    record.ResHorizontal = static_cast<std::int16_t>(width);
    OpenCalculator();
  }

  void OpenCustom(float ratio, int width = 592) {
    record.AspectMode = 2;
    record.CustomAspect = ratio;
    record.ResHorizontal = static_cast<std::int16_t>(width);
    OpenCalculator();
  }

  [[nodiscard]] QWidget* Option(int index) const {
    return Find(window, QStringLiteral("AspectR(%1)").arg(index));
  }

  /// The index of the selected option, -1 if there is none.
  [[nodiscard]] int SelectedOption() const {
    int selected = -1;
    for (int index = 0; index < 3; ++index) {
      if (IsChecked(QStringLiteral("AspectR(%1)").arg(index))) {
        EXPECT_EQ(selected, -1) << "two options are selected";
        selected = index;
      }
    }
    return selected;
  }

  /// Which of the two controls for a ratio is enabled: "AR1", "AR2", both or none.
  [[nodiscard]] std::string Enabled() const {
    return std::string(AR1->isEnabled() ? "AR1" : "") + (AR2->isEnabled() ? "AR2" : "");
  }

  /// The texts of the labels: "592x336 198912 777 1.762 -0.9%". Expects the sliders to be at that
  /// resolution.
  [[nodiscard]] std::string Figures() const {
    EXPECT_EQ(Text("HRESL"), std::to_string(HRES->value()));
    EXPECT_EQ(Text("VRESL"), std::to_string(VRES->value()));
    return Text("HRESL") + "x" + Text("VRESL") + " " + Text("Stats(0)") + " " + Text("Stats(1)") +
           " " + Text("Stats(4)") + " " + Text("Stats(5)");
  }

  /// "592x336", the resolution of the record.
  [[nodiscard]] std::string StoredResolution() const {
    return std::to_string(record.ResHorizontal) + "x" + std::to_string(record.ResVertical);
  }
  [[nodiscard]] std::string Shown() const { return Text("HRESL") + "x" + Text("VRESL"); }

  /// Moves the focus to a control and presses keys there.
  static void PressKeys(QWidget* control, std::initializer_list<Qt::Key> keys) {
    TabTo(control);
    for (const auto key : keys) {
      Key(key);
    }
  }

  /// Picks an entry of a list by the keyboard.
  static void Pick(DropDownList* list, int index) {
    PressKeys(list, {Qt::Key_Home});
    for (int i = 0; i < index; ++i) {
      Key(Qt::Key_Down);
    }
  }

  DropDownList* AR1 = nullptr;
  TextField* AR2 = nullptr;
  DropDownList* MODUL = nullptr;
  Slider* HRES = nullptr;
  Slider* VRES = nullptr;

 private:
  void FindControls() override {
    Take(AR1, "AR1");
    Take(AR2, "AR2");
    Take(MODUL, "MODUL");
    Take(HRES, "HRES");
    Take(VRES, "VRES");
  }
};

}  // namespace brindle
