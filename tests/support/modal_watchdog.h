// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace brindle {

/// Fails the running test, by its name, if a modal widget stays open longer than the limit, and
/// closes the widget, so that the run continues. Checks in real time, in any event loop.
class ModalWatchdog : public QObject {
 public:
  explicit ModalWatchdog(std::chrono::milliseconds limit);

  ModalWatchdog(const ModalWatchdog&) = delete;
  ModalWatchdog& operator=(const ModalWatchdog&) = delete;
  ModalWatchdog(ModalWatchdog&&) = delete;
  ModalWatchdog& operator=(ModalWatchdog&&) = delete;
  ~ModalWatchdog() override = default;

 private:
  void Look();
  [[nodiscard]] bool IsOverdue(QWidget* modal);

  std::chrono::milliseconds limit_;
  QTimer timer_;
  QPointer<QWidget> standing_;
  QElapsedTimer since_;
};

/// As long as this lives, modal widgets may stay open: for a test that expects one to do so for
/// long.
class ModalsMayStand {
 public:
  ModalsMayStand();
  ~ModalsMayStand();

  ModalsMayStand(const ModalsMayStand&) = delete;
  ModalsMayStand& operator=(const ModalsMayStand&) = delete;
  ModalsMayStand(ModalsMayStand&&) = delete;
  ModalsMayStand& operator=(ModalsMayStand&&) = delete;
};

}  // namespace brindle
