// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/range_table.h"

#include <array>
#include <cstddef>
#include <memory>

#include <QLayout>
#include <QString>
#include <QWidget>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/numbers/numeric_text.h"
#include "split/split_plan.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array AccessibleNames{
    "Segment 1 Selection Start",        "Segment 1 Selection End",
    "Segment 2 Selection Start",        "Segment 2 Selection End",
    "Segment 2 second Selection Start", "Segment 2 second Selection End",
    "Segment 3 Selection Start",        "Segment 3 Selection End"};
constexpr std::size_t RangesOfTwo = 2;
constexpr std::size_t RangesOfThree = 4;
constexpr int VisibleDigits = 9;

void ShowFrame(TextField& field, const FrameNumber& frame) {
  field.Write(frame ? ToQString(TextOf(*frame)) : QString());
}

}  // namespace

RangeTable::RangeTable() : SegNo3Lab2(u"SegNo3Lab2"_s, u"3"_s) {
  for (std::size_t i = 0; i < SetF.size(); ++i) {
    SetF.at(i) = std::make_unique<TextField>(u"SetF(%1)"_s.arg(i), QString());
    auto* field = SetF.at(i).get();
    field->ShowAsResult(true);
    field->setAlignment(Qt::AlignRight);
    field->SetVisibleDigits(VisibleDigits);
    field->setAccessibleName(QString::fromLatin1(AccessibleNames.at(i)));
  }
  for (auto* widget : ThirdSegment()) {
    KeepRoom({widget});
  }
}

QLayout* RangeTable::Layout() {
  const auto start = u"Selection Start"_s;
  const auto end = u"Selection End"_s;
  const auto at = [this](std::size_t i) { return SetF.at(i).get(); };
  // clang-format off
  return Table({
    {MakeLabel(u"Segment\nNo:"_s), MakeLabel(start), MakeLabel(end), MakeLabel(start), MakeLabel(end)},
    {MakeLabel(u"1"_s), at(0), at(1)},
    {MakeLabel(u"2"_s), at(2), at(3), at(4), at(5)},
    {&SegNo3Lab2, at(6), at(7)},
  });
  // clang-format on
}

void RangeTable::ShowTwo(const SplitPlan& plan) { Write(plan, RangesOfTwo); }

void RangeTable::ShowThree(const SplitPlan& plan) { Write(plan, RangesOfThree); }

void RangeTable::ShowThirdSegment(bool isShown) {
  for (auto* widget : ThirdSegment()) {
    widget->setVisible(isShown);
  }
}

// The fields used only with three segments.
std::array<QWidget*, 5> RangeTable::ThirdSegment() {
  return {&SegNo3Lab2, SetF[4].get(), SetF[5].get(), SetF[6].get(), SetF[7].get()};
}

void RangeTable::Write(const SplitPlan& plan, std::size_t ranges) {
  for (std::size_t i = 0; i < ranges; ++i) {
    ShowFrame(*SetF.at(2 * i), plan.at(i).start);
    ShowFrame(*SetF.at(2 * i + 1), plan.at(i).end);
  }
}

}  // namespace brindle
