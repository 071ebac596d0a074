// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/splash.h"

#include <algorithm>
#include <utility>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPalette>
#include <QVBoxLayout>
#include <QWidget>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/picture.h"
#include "base/windows/toolkit_notice.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr float LongestWait = 2;  // seconds
constexpr double Turn = 0.02;     // seconds between two checks of the clock

QLabel* MakeLine(const QString& name, const QString& text, QWidget* picture) {
  auto* label = MakeLabel(text);
  label->setParent(picture);
  label->setObjectName(name);
  // The picture is dark in every palette, so its text is always light.
  QPalette light = label->palette();
  light.setColor(QPalette::WindowText, QColor(0xf4, 0xef, 0xe6));
  label->setPalette(light);
  return label;
}

}  // namespace

Splash::Splash(Services& services) : QWidget(nullptr, Qt::SplashScreen), services_(services) {
  setObjectName(u"Splash"_s);
  setWindowTitle(u"Brindle"_s);

  auto* picture = new QLabel(this);
  picture->setObjectName(u"Image1"_s);
  picture->setAccessibleName(windowTitle());
  picture->setPixmap(LoadPicture(u"splash"_s, devicePixelRatio()));

  auto* version = MakeLine(u"Label1"_s, u"Version 2.91 DX"_s, picture);
  auto* website = MakeLine(u"Label2"_s, u"URL"_s, picture);
  auto* author = MakeLine(u"Label3"_s, services_.product.author, picture);
  auto* toolkit = MakeLine(u"Toolkit"_s, ToolkitNotice(), picture);
  auto* lines = new QVBoxLayout(picture);
  lines->setContentsMargins(24, 0, 24, Margin);
  lines->setSpacing(2);
  lines->addStretch(1);
  for (auto* line : {version, website, author, toolkit}) {
    lines->addWidget(line, 0, Qt::AlignLeft);
  }

  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(picture);
  whole->setSizeConstraint(QLayout::SetFixedSize);

  for (QWidget* clickable : {picture, version, website, author, toolkit}) {
    clickable->installEventFilter(this);
  }
  setFocusPolicy(Qt::StrongFocus);
  website->setText(services_.product.website);
}

void Splash::Run() {
  show();
  activateWindow();
  setFocus();
  start_ = services_.clock.SecondsSinceMidnight();
  services_.record.SplashDone = 0;
  Wait();
}

bool Splash::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::MouseButtonPress) {
    pressed_ = widget;
    return true;
  }
  if (event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (std::exchange(pressed_, nullptr) == widget &&
        widget->rect().contains(mouse->position().toPoint())) {
      Dismiss();
    }
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void Splash::keyPressEvent(QKeyEvent* event) {
  event->accept();
  Dismiss();
}

void Splash::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Dismiss();
}

void Splash::Wait() {
  if (finished_) {
    return;
  }
  const float passed = services_.clock.SecondsSinceMidnight() - start_;
  if (passed < LongestWait && services_.record.SplashDone == 0) {
    services_.clock.After(Turn, this, [this] { Wait(); });
    return;
  }
  finished_ = true;
  Q_EMIT Finished();
}

void Splash::Dismiss() {
  services_.record.SplashDone = 1;
  services_.clock.After(0, this, [this] { Wait(); });
}

}  // namespace brindle
