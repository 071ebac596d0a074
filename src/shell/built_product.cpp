// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/built_product.h"

#include <QApplication>
#include <QIcon>
#include <QString>

#include "base/input/picture.h"
#include "shell/product_settings.h"

namespace brindle {

using namespace Qt::StringLiterals;

Product BuiltProduct() {
  return {.website = QString::fromUtf8(Website),
          .updatePage = QString::fromUtf8(UpdatePage),
          .mail = QString::fromUtf8(Mail),
          .author = QString::fromUtf8(Author)};
}

void SetUpApplication() {
  QApplication::setApplicationName(u"brindle2"_s);
  QApplication::setApplicationVersion(u"2.91"_s);
  QApplication::setDesktopFileName(u"brindle2"_s);
  QApplication::setWindowIcon(QIcon(LoadPicture(u"application"_s, qApp->devicePixelRatio())));
  // For a moment, before the main window shows, the splash is the last window.
  QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace brindle
