// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QCoreApplication>

#include "tests/support/real_pointer.h"

namespace brindle {

namespace {

bool IsOfPointer(UINT message) {
  return (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
         (message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK) || message == WM_MOUSEHOVER ||
         message == WM_MOUSELEAVE || message == WM_NCMOUSEHOVER || message == WM_NCMOUSELEAVE ||
         message == WM_MOUSEACTIVATE || message == WM_SETCURSOR ||
         (message >= WM_POINTERUPDATE && message <= WM_POINTERCAPTURECHANGED);
}

class PointerFilter : public QAbstractNativeEventFilter {
 public:
  bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
    return IsOfPointer(static_cast<const MSG*>(message)->message);
  }
};

}  // namespace

void IgnoreRealPointer() {
  static PointerFilter filter;
  QCoreApplication::instance()->installNativeEventFilter(&filter);
}

}  // namespace brindle
