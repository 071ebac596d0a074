// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What the video bitrate calculator costs while a person works in it, without a screen: the windows
// paint, but no display takes the pictures.

#include <array>
#include <cstdlib>
#include <memory>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <benchmark/benchmark.h>

#include "base/input/form.h"
#include "base/input/message_boxes.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"
#include "base/windows/services.h"
#include "shell/built_product.h"
#include "shell/owning_window_list.h"
#include "shell/system_desktop.h"
#include "shell/system_films.h"
#include "shell/system_registry.h"
#include "video/bitrate_calc.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Handles everything that is waiting, repaints included.
void ComeToRest() {
  auto* dispatcher = QAbstractEventDispatcher::instance();
  while (dispatcher->processEvents(QEventLoop::AllEvents)) {
  }
}

// Shows a window and gives it the keyboard.
void Open(QWidget& window, QWidget& field) {
  window.show();
  window.activateWindow();
  field.setFocus();
  ComeToRest();
}

Settings AtStart() {
  Settings record = BuiltInSettings();
  record.SpinFirstDelay = 0.5F;
  record.SpinRepeatInterval = 0.05F;
  return record;
}

// The calculator as the program opens it, with the built-in settings.
struct Calculator {
  Settings record = AtStart();
  SystemClock clock;
  ModalDialogs modal;
  ScreenMessageBoxes boxes{modal};
  ScreenFileDialogs dialogs{modal};
  SystemDesktop desktop{boxes, clock, {}};
  SystemRegistry registry;
  SystemFilmSource films{clock, {}};
  SystemPartWriter parts{clock, {}};
  OwningWindowList windows{desktop};
  Product product = BuiltProduct();
  Services services{record,  windows,  clock, boxes, dialogs,
                    desktop, registry, films, parts, product};
  std::unique_ptr<Form> made = MakeBitrateCalc(services);
  Form& window = *made;

  template <class Control>
  Control& Find(const QString& name) {
    return *window.findChild<Control*>(name);
  }
};

// As many fields and lists as the calculator has, with nothing behind them.
struct BareWindow {
  QWidget window;
  QLineEdit* field = nullptr;

  BareWindow() {
    auto* lines = new QFormLayout(&window);
    for (int i = 0; i < 3; ++i) {
      auto* list = new QComboBox;
      list->setEditable(true);
      lines->addRow(u"List"_s, list);
    }
    for (int i = 0; i < 6; ++i) {
      field = new QLineEdit;
      lines->addRow(u"Field"_s, field);
    }
  }
};

// A key as it comes from the display, and all that follows from it. The picture after the press is
// shown before the key is released, as with a person.
void Strike(QWindow* window, Qt::Key key, const QString& text) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(window, &event);
    ComeToRest();
  }
}

// One iteration is one keystroke: a digit after "12", and in the next one Backspace.
void StrikeKeys(benchmark::State& state, const QWidget& window, QLineEdit& field) {
  auto* const handle = window.windowHandle();
  field.setText(u"12"_s);
  ComeToRest();
  bool typed = false;
  while (state.KeepRunningBatch(2)) {
    Strike(handle, Qt::Key_5, u"5"_s);
    typed = field.text() == u"125"_s;
    Strike(handle, Qt::Key_Backspace, u"\b"_s);
    typed = typed && field.text() == u"12"_s;
  }
  if (!typed) {
    state.SkipWithError("the keys did not arrive");
  }
}

void KeystrokeInCalculator(benchmark::State& state) {
  Calculator calculator;
  auto& field = calculator.Find<QLineEdit>(u"MLength"_s);
  Open(calculator.window, field);
  StrikeKeys(state, calculator.window, field);
}

void KeystrokeInBareWindow(benchmark::State& state) {
  BareWindow bare;
  Open(bare.window, *bare.field);
  StrikeKeys(state, bare.window, *bare.field);
}

void Turn(QWindow* window, QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
  QMouseEvent event(type, place, window->mapToGlobal(place), Qt::LeftButton, buttons,
                    Qt::NoModifier);
  QApplication::sendEvent(window, &event);
}

// One iteration is a press of three seconds on the plus button beside the movie length.
void HoldSpinButton(benchmark::State& state) {
  constexpr int heldMilliseconds = 3000;
  constexpr double fewestSteps = 30;
  Calculator calculator;
  auto& field = calculator.Find<QLineEdit>(u"MLength"_s);
  Open(calculator.window, field);
  auto& plus = calculator.Find<QWidget>(u"MLengthP"_s);
  const QPoint place = plus.mapTo(&calculator.window, plus.rect().center());
  auto* const handle = calculator.window.windowHandle();
  double before = 0;
  while (state.KeepRunning()) {
    before = field.text().toDouble();
    Turn(handle, QEvent::MouseButtonPress, place, Qt::LeftButton);
    QEventLoop loop;
    QTimer::singleShot(heldMilliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
  }
  if (field.text().toDouble() - before < fewestSteps) {
    state.SkipWithError("the button did not step");
  }
  Turn(handle, QEvent::MouseButtonRelease, place, Qt::NoButton);
  ComeToRest();
}

BENCHMARK(KeystrokeInCalculator)->MeasureProcessCPUTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(KeystrokeInBareWindow)->MeasureProcessCPUTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(HoldSpinButton)
    ->Iterations(1)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindle

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  brindle::SetUpApplication();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}
