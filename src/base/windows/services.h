// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/input/file_dialogs.h"
#include "base/input/message_boxes.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"
#include "base/windows/desktop.h"
#include "base/windows/film_source.h"
#include "base/windows/part_writer.h"
#include "base/windows/registry.h"
#include "base/windows/window_list.h"

namespace brindle {

/// The author's own settings, fixed when the program is built.
struct Product {
  QString website;
  QString updatePage;
  QString mail;
  QString author;  ///< the author's name and years
};

/// All that a window may ask of the program. It outlives every window.
struct Services {
  Settings& record;
  WindowList& windows;
  Clock& clock;
  MessageBoxes& boxes;
  FileDialogs& dialogs;
  Desktop& desktop;
  Registry& registry;
  FilmSource& films;
  PartWriter& parts;
  const Product& product;
};

}  // namespace brindle
