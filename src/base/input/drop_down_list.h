// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QComboBox>
#include <QString>

namespace brindle {

/// A list to choose from. It reacts to the wheel only while it has the focus. It emits activated()
/// for what the user picks, with mouse or keyboard, and for nothing else.
class DropDownList : public QComboBox {
  Q_OBJECT

 public:
  DropDownList(const QString& name, const QString& tooltip);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace brindle
