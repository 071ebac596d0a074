// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/form.h"
#include "base/input/link_label.h"
#include "base/windows/services.h"

namespace brindle {

/// The update panel. It opens the update page in the desktop's browser when it loads, and shows the
/// address to open it again; the window itself knows nothing of the network.
class WebUpdate : public Form {
  Q_OBJECT

 public:
  explicit WebUpdate(Services& services);

 private:
  void MakeLayout();
  void WireEvents();
  void Form_Load();

  void WebBrowser_Click();

  void Navigate();

  Services& services_;
  LinkLabel* WebBrowser;
};

}  // namespace brindle
