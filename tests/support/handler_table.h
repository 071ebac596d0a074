// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/calculator_window.h"
#include "tests/support/handler_event.h"

namespace brindle {

/// The effects of an event, by name: "MLength", or "MLength=1" if the text or number counts, too.
using Effects = std::set<std::string>;

const inline Effects Nothing;

/// One event of one control and everything that it does. A row states only what happens: a row with
/// just a control and an event is an event without a handler.
struct HandlerRow {
  std::string control;
  Event event = Event::Click;
  bool recomputes = false;
  Effects stores = {};                        ///< values of the record
  std::optional<Effects> storesOfEmpty = {};  ///< the same with empty fields, if it differs
  Effects fills = {};  ///< the fields that are filled afterwards; all are empty before
};

void PrintTo(const HandlerRow& row, std::ostream* out);

/// The name of a control's event in a test list: "Video0KeyLetGo".
[[nodiscard]] std::string EventOfControl(const std::string& control, Event event);

/// Names a test by the control and the event of its row.
constexpr auto RowName = [](const auto& instance) {
  return EventOfControl(instance.param.control, instance.param.event);
};

/// Rows for events without a handler: each of the events for each of the controls.
[[nodiscard]] std::vector<HandlerRow> WithoutHandler(const std::vector<std::string>& controls,
                                                     const std::vector<Event>& events);

inline auto Rows(const std::vector<HandlerRow>& rows) { return ::testing::ValuesIn(rows); }

/// What happened, in as much detail as the row states.
[[nodiscard]] Effects AsStated(const std::map<std::string, std::string>& happened,
                               const Effects& stated);
[[nodiscard]] Effects AsStated(const std::map<std::string, double>& happened,
                               const Effects& stated);

/// A test of the handler table of a window: each row opens the window, causes its event and expects
/// all that it states, and nothing else.
template <class Window>
class HandlerTable : public Window, public ::testing::WithParamInterface<HandlerRow> {
 protected:
  using ::testing::WithParamInterface<HandlerRow>::GetParam;

  /// Opens the window and prepares it so that the row's event comes alone. The focus comes from, or
  /// goes to, the control `elsewhere`, which has no handlers.
  void OpenForRow(const QString& elsewhere) {
    this->OpenCalculator();
    target_ = this->Find(this->window, QString::fromStdString(GetParam().control));
    elsewhere_ = this->Find(this->window, elsewhere);
    ASSERT_TRUE(target_->isEnabled());
    Prepare(GetParam().event, target_, elsewhere_);
  }

  void SetFields(const Names& names, const QString& text) {
    for (const auto& name : names) {
      this->Field(QString::fromStdString(name))->setText(text);
    }
  }
  void EmptyFields(const Names& names) { SetFields(names, {}); }

  /// Causes the row's event, as a user does.
  void Happen() {
    this->Forget();
    this->ArmRecomputation();
    Cause(GetParam().event, target_, elsewhere_);
  }

  /// Expects that the record got what the row states, and nothing else.
  void ExpectStores() const {
    EXPECT_EQ(AsStated(this->Written(), GetParam().stores), GetParam().stores);
  }
  void ExpectStoresOfEmpty() const {
    const auto stores = GetParam().storesOfEmpty.value_or(GetParam().stores);
    EXPECT_EQ(AsStated(this->Written(), stores), stores);
  }

  /// Expects that the fields that the row states are filled, and no others.
  void ExpectFills(const Names& names) const {
    std::map<std::string, std::string> texts;
    for (const auto& name : names) {
      const auto text = this->Text(name.c_str());
      if (!text.empty()) {
        texts[name] = text;
      }
    }
    EXPECT_EQ(AsStated(texts, GetParam().fills), GetParam().fills);
  }

 private:
  QWidget* target_ = nullptr;
  QWidget* elsewhere_ = nullptr;
};

}  // namespace brindle
