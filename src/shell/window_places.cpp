// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/window_places.h"

#include <algorithm>
#include <vector>

#include <QApplication>
#include <QGuiApplication>
#include <QMetaType>
#include <QPoint>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QString>

#include "base/input/form.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

qint64 AreaOf(const QRect& rect) {
  return rect.isEmpty() ? 0 : static_cast<qint64>(rect.width()) * rect.height();
}

std::vector<QRect> Screens() {
  std::vector<QRect> screens;
  for (const auto* screen : QGuiApplication::screens()) {
    screens.push_back(screen->availableGeometry());
  }
  return screens;
}

// The left or upper end that keeps a length within the room, or at its beginning if it is longer.
int Within(int at, int length, int begin, int room) {
  return std::max(begin, std::min(at, begin + room - length));
}

}  // namespace

QPoint PlaceOnScreens(const QRect& window, const std::vector<QRect>& screens) {
  const auto shown = [&](const QRect& screen) { return AreaOf(screen & window); };
  const auto& screen = *std::max_element(
      screens.begin(), screens.end(),
      [&](const QRect& one, const QRect& other) { return shown(one) < shown(other); });
  return {Within(window.x(), window.width(), screen.x(), screen.width()),
          Within(window.y(), window.height(), screen.y(), screen.height())};
}

WindowPlaces::WindowPlaces(const QString& folder)
    : places_(folder + u"/Brindle2.places"_s, QSettings::IniFormat) {}

void WindowPlaces::Watch(Form& form) {
  const auto place = places_.value(form.objectName());
  const auto screens = Screens();
  if (place.typeId() == QMetaType::QPoint && !screens.empty()) {
    form.move(PlaceOnScreens({place.toPoint(), form.sizeHint()}, screens));
  }
  connect(&form, &Form::Closed, this, [this, &form] { Remember(form); });
}

void WindowPlaces::RememberAll() {
  for (const auto* window : QApplication::topLevelWidgets()) {
    const auto* form = qobject_cast<const Form*>(window);
    if (form != nullptr) {
      Remember(*form);
    }
  }
}

void WindowPlaces::Remember(const Form& form) {
  if (form.isVisible() && !form.isMinimized()) {
    places_.setValue(form.objectName(), form.pos());
  }
}

}  // namespace brindle
