// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/default_w.h"

#include <functional>
#include <memory>
#include <utility>

#include <QString>

#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/push_button.h"
#include "base/input/wiring.h"
#include "base/windows/services.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class DefaultW : public Form {
  Services& services_;
  InitDat initDat_;

  PushButton Command1{u"Command1"_s, u"Load Defaults"_s};
  PushButton Command2{u"Command2"_s, u"Cancel"_s};

 public:
  DefaultW(Services& services, InitDat initDat)
      : Form(u"DefaultW"_s, u"Load Default Settings"_s),
        services_(services),
        initDat_(std::move(initDat)) {
    // clang-format off
    LayOut(this,
      Down({
        MakeLabel(u"Replace the settings of all windows by the default settings?"_s),
        MakeLabel(u"Windows that are open keep showing their values until they are opened again."_s),
        Across({Item::Stretch(), &Command1, &Command2}, Spacing),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&Command1);
  }

 private:
  void WireEvents() {
    const Wires on(this);
    on(Command1).Click(&DefaultW::Command1_Click);
    on(Command2).Click(&DefaultW::Command2_Click);
  }

  void Form_Load() { services_.desktop.Beep(); }

  void Command1_Click() {
    initDat_([this] { close(); });
  }

  void Command2_Click() { close(); }
};

}  // namespace

std::unique_ptr<Form> MakeDefaultW(Services& services, InitDat initDat) {
  return std::make_unique<DefaultW>(services, std::move(initDat));
}

}  // namespace brindle
