// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The smallest program of this toolkit that shows a window. It ends as soon as that is painted.

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include "first_paint.h"

int main(int argc, char** argv) {
  using namespace Qt::StringLiterals;
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(u"Bare"_s);
  auto* lines = new QVBoxLayout(&window);
  lines->addWidget(new QLabel(u"A window with a label and a button"_s));
  lines->addWidget(new QPushButton(u"Close"_s));
  brindle::AtFirstPaint painted(&window, brindle::EndNow);
  window.show();
  return QApplication::exec();
}
