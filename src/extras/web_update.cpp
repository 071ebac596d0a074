// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "extras/web_update.h"

#include <memory>

#include <QString>

#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/link_label.h"
#include "base/input/wiring.h"
#include "base/windows/services.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class WebUpdate : public Form {
  Services& services_;

  LinkLabel WebBrowser{u"WebBrowser"_s};

 public:
  explicit WebUpdate(Services& services)
      : Form(u"WebUpdate"_s, u"Velbrin's Brindle 2 : Web Update Panel"_s), services_(services) {
    WebBrowser.setText(services_.product.updatePage);
    NameByLabel(u"Update Panel :"_s, {&WebBrowser});

    // clang-format off
    LayOut(this,
      Down({
        MakeLabel(u"Label3"_s, u"Connect to Velbrin's Website and check for program updates."_s),
        Across({MakeLabel(u"Label2"_s, u"Update Panel :"_s), &WebBrowser, Item::Stretch()}, Spacing),
        MakeLabel(u"Label1"_s, u"Internet connection required"_s),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&WebBrowser);
  }

 private:
  void WireEvents() {
    const Wires on(this);
    on(WebBrowser).Click(&WebUpdate::WebBrowser_Click);
  }

  void Form_Load() { Navigate(); }

  void WebBrowser_Click() { Navigate(); }

  void Navigate() { services_.desktop.OpenAddress(this, services_.product.updatePage); }
};

}  // namespace

std::unique_ptr<Form> MakeWebUpdate(Services& services) {
  return std::make_unique<WebUpdate>(services);
}

}  // namespace brindle
