// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include <QLayout>
#include <QWidget>

#include "base/input/labels.h"
#include "base/input/text_field.h"
#include "split/split_plan.h"

namespace brindle {

/// The table of the frame ranges to delete: a line for each segment, a field for each frame number.
class RangeTable {
 public:
  RangeTable();

  /// The whole table, for the frame around it.
  [[nodiscard]] QLayout* Layout();

  /// Shows the ranges of two segments; the fields used only with three stay as they are.
  void ShowTwo(const SplitPlan& plan);
  void ShowThree(const SplitPlan& plan);

  /// Shows or hides the third segment and the second range of the second; nothing else moves.
  void ShowThirdSegment(bool isShown);

 private:
  void Write(const SplitPlan& plan, std::size_t ranges);
  [[nodiscard]] std::array<QWidget*, 5> ThirdSegment();

  std::array<std::unique_ptr<TextField>, 8> SetF;
  PlainLabel SegNo3Lab2;
};

}  // namespace brindle
