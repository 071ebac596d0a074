// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QKeyEvent>
#include <QString>
#include <QStringList>

#include "base/input/drop_down_list.h"
#include "base/input/text_field.h"

namespace brindle {

/// A field with a drop-down list of usual values. It completes nothing, adds nothing to its list,
/// and reacts to the wheel only while it has the focus. It emits activated() for what the user
/// picks, with mouse or keyboard, and for nothing else.
class EditableList : public DropDownList {
  Q_OBJECT

 public:
  explicit EditableList(const QString& name, const QString& tooltip);

  /// The text part.
  [[nodiscard]] TextField* Field() const { return field_; }

  /// Replaces the list; the text and its selection do not change.
  void Fill(const QStringList& entries);

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // Makes the entry that equals the text the current one, so that the list opens and steps from it.
  void StartFromText();

  TextField* field_;
};

}  // namespace brindle
