// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/file_drop.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace brindle {

namespace {

QString PathIn(const QMimeData* data) {
  const auto urls = data->urls();
  return urls.isEmpty() ? QString() : QDir::toNativeSeparators(urls.constFirst().toLocalFile());
}

}  // namespace

FileDrop::FileDrop(QWidget* window) : QObject(window), window_(window) {
  window->setAcceptDrops(true);
  window->installEventFilter(this);
}

void FileDrop::CoverFields() {
  for (auto* field : window_->findChildren<QLineEdit*>()) {
    field->installEventFilter(this);
  }
}

// Nothing is accepted while a box or dialog is open: it stops the whole program.
bool FileDrop::CanAccept() const {
  return isAccepting_ && QApplication::activeModalWidget() == nullptr;
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (isDrop || event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
    auto& drag = dynamic_cast<QDropEvent&>(*event);
    const auto path = PathIn(drag.mimeData());
    if (watched != window_ && path.isEmpty()) {
      return false;
    }
    if (!CanAccept() || path.isEmpty()) {
      drag.ignore();
    } else {
      // The file is opened in place, whatever action was proposed: it must not be moved.
      drag.setDropAction(Qt::CopyAction);
      drag.accept();
      if (isDrop) {
        QTimer::singleShot(0, this, [this, path] {
          if (CanAccept()) {
            Q_EMIT Dropped(path);
          }
        });
      }
    }
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace brindle
