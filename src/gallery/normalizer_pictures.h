// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QLabel>
#include <QObject>
#include <QProgressBar>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace brindle {

/// Uses the normalizer as a person does, from the event loop, and has a picture taken in each of
/// its states: a file is open, it is scanned, it has been scanned, it is normalized, it has been
/// normalized and can be taken back.
class NormalizerTour : public QObject {
  Q_OBJECT

 public:
  /// `state` is what to add to the window's name.
  using Take = std::function<void(const QString& state)>;

  NormalizerTour(QWidget& window, Take take);
  void Start();

 Q_SIGNALS:
  /// `isWhole`: a picture was taken in each state.
  void Ended(bool isWhole);

 private:
  void Click(const QString& button);
  void Begin(const QString& button, const QString& state);
  void Look();

  QWidget& window_;
  Take take_;
  QLabel* status_;
  QProgressBar* progress_;
  QTimer watch_;
  QString state_;          // of what was begun last
  bool hasBegun_ = false;  // it was seen at work
  bool isTaken_ = false;   // well under way
  bool isWhole_ = true;
};

}  // namespace brindle
