// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The window that asks once more before the defaults are loaded.
class DefaultW : public Form {
  Q_OBJECT

 public:
  /// `initDat` loads the defaults and writes them.
  DefaultW(Services& services, std::function<void()> initDat);

 private:
  void Form_Load();
  void Command1_Click();
  void Command2_Click();

  Services& services_;
  std::function<void()> initDat_;
};

}  // namespace brindle
