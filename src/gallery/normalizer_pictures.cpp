// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "gallery/normalizer_pictures.h"

#include <utility>

#include <QPushButton>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace brindle {

using namespace Qt::StringLiterals;

NormalizerTour::NormalizerTour(QWidget& window, Take take)
    : window_(window),
      take_(std::move(take)),
      status_(window.findChild<QLabel*>(u"Status"_s)),
      progress_(window.findChild<QProgressBar*>(u"ProgBar"_s)) {
  connect(&watch_, &QTimer::timeout, this, &NormalizerTour::Look);
}

void NormalizerTour::Start() {
  Click(u"btnOpen"_s);
  take_(u"Open"_s);
  Begin(u"btnScan"_s, u"Scanning"_s);
  watch_.start(0);
}

void NormalizerTour::Click(const QString& button) {
  window_.findChild<QPushButton*>(button)->click();
}

void NormalizerTour::Begin(const QString& button, const QString& state) {
  state_ = state;
  hasBegun_ = false;
  isTaken_ = false;
  Click(button);
}

void NormalizerTour::Look() {
  constexpr int wellUnderWay = 30;  // percent
  const bool isAtWork = !status_->text().isEmpty();
  hasBegun_ |= isAtWork;
  if (!isTaken_ && progress_->value() >= wellUnderWay) {
    isTaken_ = true;
    take_(state_);
  }
  if (isAtWork || !hasBegun_) {
    return;
  }
  isWhole_ &= isTaken_;
  if (state_ == u"Scanning"_s) {
    take_(u"Scanned"_s);
    Begin(u"btnNorm"_s, u"Normalizing"_s);
  } else {
    watch_.stop();
    take_(u"Normalized"_s);
    Q_EMIT Ended(isWhole_);
  }
}

}  // namespace brindle
