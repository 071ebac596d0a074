// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/default_w.h"

#include <functional>
#include <utility>

#include <QPushButton>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/wiring.h"

namespace brindle {

using namespace Qt::StringLiterals;

DefaultW::DefaultW(Services& services, std::function<void()> initDat)
    : Form(u"DefaultW"_s, u"Load Default Settings"_s),
      services_(services),
      initDat_(std::move(initDat)) {
  auto* command1 = MakeButton(u"Command1"_s, u"Load Defaults"_s);
  auto* command2 = MakeButton(u"Command2"_s, u"Cancel"_s);

  // clang-format off
  LayOut(this,
    Down({
      MakeLabel(u"Replace the settings of all windows by the default settings?"_s),
      MakeLabel(u"Windows that are open keep showing their values until they are opened again."_s),
      Across({Item::Stretch(), command1, command2}, Spacing),
    }));
  // clang-format on

  const Wires on(this);
  on(command1).Click(&DefaultW::Command1_Click);
  on(command2).Click(&DefaultW::Command2_Click);
  Form_Load();
  Focus().Begin(command1);
}

void DefaultW::Form_Load() { services_.desktop.Beep(); }

void DefaultW::Command1_Click() {
  initDat_();
  close();
}

void DefaultW::Command2_Click() { close(); }

}  // namespace brindle
