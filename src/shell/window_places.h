// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSettings>
#include <QString>

#include "base/input/form.h"

namespace brindle {

/// Where a window comes up: at its place, moved onto the screen that shows most of it, or onto the
/// first one if none does, so far that all of it can be seen, or else its upper left corner. All in
/// device-independent pixels; `screens` are without the desktop's bars, and one at least.
[[nodiscard]] QPoint PlaceOnScreens(const QRect& window, const std::vector<QRect>& screens);

/// Remembers where the windows stood, within a run and from one to the next, in the file
/// "Brindle2.places" beside the settings. A file that is missing, damaged or not writable costs the
/// places and nothing else.
class WindowPlaces : public QObject {
  Q_OBJECT

 public:
  /// `folder` is that of the settings.
  explicit WindowPlaces(const QString& folder);

  /// Puts a window that is not shown yet where it stood, and remembers where it stands when it is
  /// closed.
  void Watch(Form& form);
  /// Notes where the windows are that are still shown. They are written when this object goes.
  void RememberAll();

 private:
  void Remember(const Form& form);

  QSettings places_;
};

}  // namespace brindle
