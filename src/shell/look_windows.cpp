// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QPalette>
#include <QString>
#include <QStyle>

#include "shell/look.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr auto Platform = "QT_QPA_PLATFORM";
constexpr auto OwnPlatform = "windows:darkmode=2";

// The system's own style draws light fields and buttons with any palette.
QString StyleFor(const QPalette& palette) {
  constexpr int half = 128;  // of the lightness
  return palette.color(QPalette::Window).lightness() < half ? u"fusion"_s : u"windowsvista"_s;
}

void KeepToPalette() {
  const auto wanted = StyleFor(QApplication::palette());
  if (QApplication::style()->name().compare(wanted, Qt::CaseInsensitive) != 0) {
    QApplication::setStyle(wanted);
  }
}

class PaletteWatch : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
      // From the event loop: the windows are still being told of the palette.
      QMetaObject::invokeMethod(this, KeepToPalette, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

void AskForDarkPalette() {
  if (qEnvironmentVariableIsEmpty(Platform)) {
    qputenv(Platform, OwnPlatform);
  }
}

void FollowPalette() {
  // The setting was for this program, not for those that it starts.
  if (qgetenv(Platform) == OwnPlatform) {
    qunsetenv(Platform);
  }
  KeepToPalette();
  qApp->installEventFilter(new PaletteWatch(qApp));
}

}  // namespace brindle
