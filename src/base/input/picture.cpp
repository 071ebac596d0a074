// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/picture.h"

#include <algorithm>
#include <cmath>

#include <QFile>
#include <QImageReader>
#include <QPixmap>
#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

QPixmap LoadPicture(const QString& name, qreal devicePixelRatio) {
  const int scale = std::clamp(static_cast<int>(std::ceil(devicePixelRatio)), 1, 4);
  const QString suffix = scale == 1 ? QString() : u"@%1x"_s.arg(scale);
  const QString path = u":/pictures/"_s + name + suffix;
  // The format is given because guessing it loads every image plugin of the desktop, at each start.
  const bool isPlain = QFile::exists(path + u".ppm"_s);
  QImageReader reader(path + (isPlain ? u".ppm"_s : u".png"_s), isPlain ? "ppm" : "png");
  reader.setAutoDetectImageFormat(false);
  QPixmap picture = QPixmap::fromImageReader(&reader);
  picture.setDevicePixelRatio(scale);
  return picture;
}

}  // namespace brindle
