// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/editable_list.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "base/input/text_field.h"

namespace brindle {

using namespace Qt::StringLiterals;

EditableList::EditableList(const QString& name, const QString& tooltip)
    : DropDownList(name, tooltip), field_(new TextField(name + u"Text"_s, tooltip)) {
  setEditable(true);
  setLineEdit(field_);
  setCompleter(nullptr);
  setInsertPolicy(NoInsert);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(5);
  // The toolkit would pick the entry that equals a typed text; typing is not picking.
  disconnect(field_, &QLineEdit::editingFinished, this, nullptr);
}

void EditableList::Fill(const QStringList& entries) {
  const QString text = field_->text();
  const int index = currentIndex();
  const QSignalBlocker quiet(this);
  const QSignalBlocker quietField(field_);
  clear();
  addItems(entries);
  setCurrentIndex(index < count() ? index : -1);
  field_->setText(text);
}

void EditableList::showPopup() {
  StartFromText();
  QComboBox::showPopup();
}

void EditableList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    StartFromText();
  }
  QComboBox::keyPressEvent(event);
}

void EditableList::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    StartFromText();
  }
  DropDownList::wheelEvent(event);
}

void EditableList::StartFromText() {
  const int index = findText(field_->text(), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (index >= 0 && index != currentIndex()) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
  }
}

}  // namespace brindle
