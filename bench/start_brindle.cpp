// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The program as its main() starts it, with somebody who dismisses the splash with a key as soon as
// it is painted. It ends as soon as the main window is painted.

#include <memory>

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QObject>

#include "base/settings/settings_file.h"
#include "first_paint.h"
#include "shell/built_product.h"
#include "shell/main_prog.h"
#include "shell/program.h"
#include "shell/splash.h"
#include "shell/termination.h"

namespace brindle {
namespace {

// Sees every event of the two windows.
class Impatient : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && !dismissed_ &&
        qobject_cast<Splash*>(watched) != nullptr) {
      dismissed_ = true;
      QApplication::postEvent(watched,
                              new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier));
    }
    if (event->type() == QEvent::Show && qobject_cast<MainProg*>(watched) != nullptr) {
      mainProg_ = std::make_unique<AtFirstPaint>(watched, EndNow);
    }
    return false;
  }

 private:
  bool dismissed_ = false;
  std::unique_ptr<AtFirstPaint> mainProg_;
};

}  // namespace
}  // namespace brindle

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  brindle::Impatient impatient;
  QApplication::instance()->installEventFilter(&impatient);
  brindle::SetUpApplication();
  brindle::Program program(brindle::BuiltProduct(), {.program = QApplication::applicationDirPath(),
                                                     .config = brindle::DesktopConfigFolder()});
  const brindle::Termination termination;
  QObject::connect(&termination, &brindle::Termination::Asked, &program, &brindle::Program::End);
  program.Start();
  return QApplication::exec();
}
