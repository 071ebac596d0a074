// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "gallery/normalizer_pictures.h"

#include <functional>

#include <QProgressBar>
#include <QPushButton>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

void Click(const QWidget& window, const QString& button) {
  window.findChild<QPushButton*>(button)->click();
}

// Clicks, and calls `take` when what the click began is well under way; false where it never was.
bool ClickAndWatch(const QWidget& window, const QString& button,
                   const std::function<void()>& take) {
  constexpr int wellUnderWay = 30;  // percent
  const auto* progress = window.findChild<QProgressBar*>(u"ProgBar"_s);
  QTimer watch;
  bool taken = false;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    if (!taken && progress->value() >= wellUnderWay) {
      taken = true;
      take();
    }
  });
  watch.start(0);
  Click(window, button);
  return taken;
}

}  // namespace

bool ShowNormalizerAtWork(QWidget& window, const std::function<void(const QString& state)>& take) {
  Click(window, u"btnOpen"_s);
  take(u"Open"_s);
  const bool scanned = ClickAndWatch(window, u"btnScan"_s, [&] { take(u"Scanning"_s); });
  take(u"Scanned"_s);
  return ClickAndWatch(window, u"btnNorm"_s, [&] { take(u"Normalizing"_s); }) && scanned;
}

}  // namespace brindle
