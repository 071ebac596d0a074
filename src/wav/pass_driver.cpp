// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_driver.h"

#include <functional>
#include <utility>
#include <variant>

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

#include "base/time/clock.h"
#include "wav/pass.h"

namespace brindle {

namespace {

// How long at most a pass waits after a box is closed.
constexpr double BetweenLooks = 0.02;  // seconds

}  // namespace

PassDriver::PassDriver(Clock& clock, ShowProgress show, IsAborted isAborted)
    : clock_(clock), show_(std::move(show)), isAborted_(std::move(isAborted)) {}

void PassDriver::Drive(Pass& pass, const std::function<void(const PassState&)>& ended) {
  Take(pass, pass.Advance(), ended);
}

void PassDriver::Take(Pass& pass, const PassState& state,
                      const std::function<void(const PassState&)>& ended) {
  const auto* going = std::get_if<PassGoesOn>(&state);
  if (going == nullptr) {
    ended(state);
    return;
  }
  show_(going->progress);
  AfterEvents(
      [this, &pass, ended] { Take(pass, isAborted_() ? pass.Abort() : pass.Advance(), ended); });
}

void PassDriver::AfterEvents(const std::function<void()>& action) { DoAfter(0, action); }

void PassDriver::Stop() { ++stops_; }

void PassDriver::DoAfter(double seconds, const std::function<void()>& action) {
  clock_.After(seconds, &lifetime_, [this, action, stops = stops_] {
    if (stops != stops_) {
      return;
    }
    PaintWhatChanged();
    if (QApplication::activeModalWidget() != nullptr) {
      DoAfter(BetweenLooks, action);
    } else {
      action();
    }
  });
}

// What the events of this turn have caused (a layout, and then a picture of it) would have to wait
// for the next piece, half a second long.
void PassDriver::PaintWhatChanged() {
  for (auto* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) {
      QCoreApplication::sendPostedEvents(window, QEvent::LayoutRequest);
      QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
    }
  }
}

}  // namespace brindle
