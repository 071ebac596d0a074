// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/form.h"

#include <functional>
#include <memory>
#include <utility>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShowEvent>
#include <QWidget>
#include <QWindow>

namespace brindle {

namespace {

// Every window is as large as its contents, so there is nothing to maximize.
constexpr auto Flags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

}  // namespace

Form::Form(const QString& name, const QString& caption, Escape escape)
    : QWidget(nullptr, Flags), escape_(escape) {
  setObjectName(name);
  setWindowTitle(caption);
}

bool Form::MayClose(const std::function<void()>& whenAgreed) {
  if (std::exchange(hasAgreed_, false)) {
    return true;
  }
  const auto isLater = std::make_shared<bool>(false);
  AskToClose([this, isLater, whenAgreed] {
    hasAgreed_ = true;
    if (*isLater) {
      whenAgreed();
      hasAgreed_ = false;  // it counts for this once
    }
  });
  *isLater = true;
  return std::exchange(hasAgreed_, false);
}

void Form::closeEvent(QCloseEvent* event) {
  if (!closed_ && !MayClose([this] { close(); })) {
    event->ignore();
    return;
  }
  WillClose();
  QWidget::closeEvent(event);
  if (event->isAccepted() && !std::exchange(closed_, true)) {
    focus_.Stop();
    Q_EMIT Closed();
  }
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (escape_ == Escape::Closes && event->key() == Qt::Key_Escape) {
    event->accept();
    close();
    return;
  }
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
    // A held key repeats as a release and a press at the same moment. The toolkit recognizes the
    // repetition only if the press has arrived by the time it handles the release.
    const bool isHeld = event->isAutoRepeat() || letGoOfF1_ == event->timestamp();
    if (!isHeld) {
      Q_EMIT HelpAsked();
    }
    return;
  }
  QWidget::keyPressEvent(event);
}

void Form::showEvent(QShowEvent* event) {
  windowHandle()->installEventFilter(this);
  QWidget::showEvent(event);
}

// Sees the keys of all controls, because a field keeps its own to itself.
bool Form::eventFilter(QObject* watched, QEvent* event) {
  const bool isRelease = event->type() == QEvent::KeyRelease;
  if (isRelease || event->type() == QEvent::KeyPress) {
    const auto* key = dynamic_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1) {
      letGoOfF1_.reset();  // another key came between: nothing is held
    } else if (isRelease) {
      letGoOfF1_ = key->timestamp();
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace brindle
