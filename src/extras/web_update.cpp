// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "extras/web_update.h"

#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/wiring.h"

namespace brindle {

using namespace Qt::StringLiterals;

WebUpdate::WebUpdate(Services& services)
    : Form(u"WebUpdate"_s, u"Velbrin's Brindle 2 : Web Update Panel"_s),
      services_(services),
      WebBrowser(new LinkLabel(u"WebBrowser"_s)) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(WebBrowser);
}

void WebUpdate::MakeLayout() {
  WebBrowser->setText(services_.product.updatePage);
  NameByLabel(u"Update Panel :"_s, {WebBrowser});

  // clang-format off
  LayOut(this,
    Down({
      MakeLabel(u"Label3"_s, u"Connect to Velbrin's Website and check for program updates."_s),
      Across({MakeLabel(u"Label2"_s, u"Update Panel :"_s), WebBrowser, Item::Stretch()}, Spacing),
      MakeLabel(u"Label1"_s, u"Internet connection required"_s),
    }));
  // clang-format on
}

void WebUpdate::WireEvents() {
  const Wires on(this);
  on(WebBrowser).Click(&WebUpdate::WebBrowser_Click);
}

void WebUpdate::Form_Load() { Navigate(); }

void WebUpdate::WebBrowser_Click() { Navigate(); }

void WebUpdate::Navigate() { services_.desktop.OpenAddress(this, services_.product.updatePage); }

}  // namespace brindle
