// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "extras/about_win.h"

#include <memory>

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QString>

#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/link_label.h"
#include "base/input/picture.h"
#include "base/input/wiring.h"
#include "base/windows/services.h"
#include "base/windows/toolkit_notice.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// The program's picture with a border.
QWidget* FramedPicture(qreal devicePixelRatio) {
  auto* picture = new QLabel;
  picture->setObjectName(u"Image1"_s);
  picture->setAccessibleName(u"Brindle"_s);
  picture->setPixmap(LoadPicture(u"application"_s, devicePixelRatio));

  auto* line = new QFrame;
  line->setObjectName(u"Shape1"_s);
  line->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  line->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* inside = new QHBoxLayout(line);
  inside->setContentsMargins(Margin, Margin, Margin, Margin);
  inside->addWidget(picture);
  return line;
}

class AboutWin : public Form {
  Services& services_;

  LinkLabel email{u"email"_s};
  LinkLabel website{u"website"_s};

 public:
  explicit AboutWin(Services& services)
      : Form(u"AboutWin"_s, u"About Calculator"_s), services_(services) {
    auto* label9 = new DescriptionLabel(
        u"Velbrin's Brindle 2 is a collection of calculators for the various steps of most "
        "DVD-to-AVI/xVCD methods."_s);
    label9->setObjectName(u"Label9"_s);
    email.setText(services_.product.mail);
    NameByLabel(u"E-Mail :"_s, {&email});

    // clang-format off
    LayOut(this,
      Across({
        Down({FramedPicture(devicePixelRatio()), Item::Stretch()}),
        Down({
          label9,
          // The two blanks after "DX" are deliberate: the version has always been written so, and
          // the contract test checks it.
          MakeLabel(u"Label8"_s, u"Version 2.91 DX  for Windows 9x/Me/2000/XP"_s),
          Across({MakeLabel(u"Label3"_s, u"E-Mail :"_s), &email, Item::Stretch()}, Spacing),
          Across({&website, Item::Stretch()}),
          MakeLabel(u"Author"_s, services_.product.author),
          MakeLabel(u"Toolkit"_s, ToolkitNotice()),
        }),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&email);
  }

 private:
  void WireEvents() {
    const Wires on(this);
    on(email).Click(&AboutWin::email_Click);
    on(website).Click(&AboutWin::website_Click);
  }

  void Form_Load() { website.setText(services_.product.website); }

  void email_Click() { services_.desktop.OpenAddress(this, u"mailto:"_s + services_.product.mail); }

  void website_Click() { services_.desktop.OpenAddress(this, services_.product.website); }
};

}  // namespace

std::unique_ptr<Form> MakeAboutWin(Services& services) {
  return std::make_unique<AboutWin>(services);
}

}  // namespace brindle
