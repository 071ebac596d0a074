// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_view.h"

#include <optional>
#include <utility>
#include <variant>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPaintEvent>
#include <QPainter>
#include <QSize>
#include <QString>
#include <QWidget>

#include "base/input/number_fields.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/sound_drawing.h"
#include "wav/sound_outlook.h"
#include "wav/sound_picture.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* view = qobject_cast<SoundView*>(object);
  return view != nullptr ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

}  // namespace

SoundView::SoundView() {
  QAccessible::installFactory(&MakeAccessible);  // the first call counts
  setObjectName(u"Sound"_s);
  setAccessibleName(u"Picture of the sound"_s);
  setToolTip(
      u"Strong: the sound as it is. Faint: as normalizing would make it. Dashed: the level to "
      u"reach. "
      "Red: what would be cut off."_s);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAttribute(Qt::WA_OpaquePaintEvent);
  ShowOutlook();
}

void SoundView::Clear() {
  outlook_ = {};
  peaks_.reset();
  ShowOutlook();
}

void SoundView::ShowScan(const SoundPicture& picture) {
  outlook_ = {.picture = picture};
  peaks_.reset();
  ShowOutlook();
}

void SoundView::ShowScanned(const SoundPicture& picture, Peaks peaks) {
  outlook_ = {.picture = picture};
  peaks_ = peaks;
  LookAhead();
}

void SoundView::AimAt(double percent) {
  percent_ = percent;
  if (!isPassing_) {
    LookAhead();
  }
}

void SoundView::BeginPass(double percent, double gain, bool changesFile) {
  outlook_.targetPercent = percent;
  outlook_.gain = gain;
  isPassing_ = true;
  changesFile_ = changesFile;
  ShowOutlook();
}

void SoundView::ShowPass(const PassProgress& progress) {
  outlook_.done = outlook_.picture.ColumnsWithin(progress.percent);
  ShowOutlook();
}

void SoundView::EndPass(const PassState& end) {
  const bool isCompleted = std::holds_alternative<PassCompleted>(end);
  const auto done = std::exchange(outlook_.done, 0);
  isPassing_ = false;
  if (outlook_.gain && (isCompleted || changesFile_)) {
    outlook_.picture.Amplify(isCompleted ? outlook_.picture.Columns().size() : done,
                             *outlook_.gain);
    peaks_.reset();
  }
  LookAhead();
}

void SoundView::LookAhead() {
  outlook_.targetPercent = percent_;
  outlook_.gain =
      peaks_ ? GainFor(peaks_->lowest, peaks_->highest, percent_) : std::optional<double>();
  ShowOutlook();
}

void SoundView::ShowOutlook() {
  const auto text = ToQString(TextOf(outlook_));
  if (text != accessibleDescription()) {
    setAccessibleDescription(text);
  }
  update();
}

QSize SoundView::sizeHint() const {
  constexpr int lines = 5;
  return {0, lines * fontMetrics().height()};
}

QSize SoundView::minimumSizeHint() const { return sizeHint(); }

// In whole pixels of the screen, so that nothing is blurred at any scale. What is left over at the
// right and the bottom is less than one.
void SoundView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto colors = SoundColors::Of(palette());
  const qreal ratio = painter.deviceTransform().m11();
  const QSize pixels(static_cast<int>(width() * ratio), static_cast<int>(height() * ratio));
  auto image = DrawnSound(outlook_, pixels, ratio, colors);
  image.setDevicePixelRatio(ratio);
  painter.fillRect(rect(), colors.border);
  painter.drawImage(0, 0, image);
}

}  // namespace brindle
