// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/form.h"
#include "base/input/link_label.h"
#include "base/windows/services.h"

namespace brindle {

/// What the program is, and where its author can be reached.
class AboutWin : public Form {
  Q_OBJECT

 public:
  explicit AboutWin(Services& services);

 private:
  void MakeLayout();
  void WireEvents();
  void Form_Load();

  void email_Click();
  void website_Click();

  Services& services_;
  LinkLabel* email;
  LinkLabel* website;
};

}  // namespace brindle
