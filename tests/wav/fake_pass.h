// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <deque>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "wav/pass.h"
#include "wav/wav_error.h"

namespace brindle {

/// What a pass says that is at this percentage.
inline PassState GoesOnAt(int percent) {
  return PassGoesOn{{.wholePercent = percent, .percent = 0, .elapsed = 0}};
}

/// "at 10", "completed", "aborted", or the message of the error.
inline std::string StateText(const PassState& state) {
  if (const auto* going = std::get_if<PassGoesOn>(&state)) {
    return "at " + std::to_string(going->progress.wholePercent);
  }
  if (const auto* error = std::get_if<WavError>(&state)) {
    return MessageOf(*error).toStdString();
  }
  return std::holds_alternative<PassCompleted>(state) ? "completed" : "aborted";
}

/// A pass that does nothing but say what a test has prepared, one piece after the other, and tell
/// what was asked of it.
class FakePass : public Pass {
 public:
  FakePass(std::vector<std::string>& happened, std::deque<PassState> pieces)
      : happened_(happened), pieces_(std::move(pieces)) {}

  [[nodiscard]] PassState Advance() override {
    happened_.emplace_back("advance");
    return Next(pieces_);
  }
  [[nodiscard]] PassState Abort() override {
    happened_.emplace_back("abort");
    return Next(whenAborted);
  }

  std::deque<PassState> whenAborted{PassAborted()};  ///< what it says to each call of Abort()

 private:
  static PassState Next(std::deque<PassState>& states) {
    EXPECT_FALSE(states.empty()) << "the pass has ended";
    PassState state = PassAborted();
    if (!states.empty()) {
      std::swap(state, states.front());
      states.pop_front();
    }
    return state;
  }

  std::vector<std::string>& happened_;
  std::deque<PassState> pieces_;
};

}  // namespace brindle
