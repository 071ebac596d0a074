// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include <QButtonGroup>
#include <QObject>
#include <QRadioButton>
#include <QString>

namespace brindle {

/// One option of an array; its objectName carries the index: "DivX(0)".
class OptionButton : public QRadioButton {
  Q_OBJECT
  Q_PROPERTY(int Index READ Index CONSTANT)

 public:
  OptionButton(const QString& array, int index, const QString& caption, const QString& tooltip);
  [[nodiscard]] int Index() const { return index_; }

 private:
  int index_;
};

/// An array of options of which at most one is selected; at creation none is.
class OptionGroup : public QObject {
  Q_OBJECT

 public:
  explicit OptionGroup(const QString& name) { setObjectName(name); }

  /// Adds the option with this index. Its parent becomes the layout's widget, as for any control.
  OptionButton* Add(int index, const QString& caption, const QString& tooltip);

  /// Selects an option; an index that no option has changes nothing.
  void Select(int index);

  /// The index of the selected option; empty if none is.
  [[nodiscard]] std::optional<int> Selected() const;

  /// Where Tab stops: the selected option, or the first one if none is.
  [[nodiscard]] OptionButton* TabStop() const;

  [[nodiscard]] const std::vector<OptionButton*>& Buttons() const { return buttons_; }

 Q_SIGNALS:
  /// An option became selected, by the user or by the program.
  void Click(int index);

 private:
  // The toolkit lets Tab stop at the first option, until one has had the focus.
  void StopTabAtSelected();

  QButtonGroup exclusive_;
  std::vector<OptionButton*> buttons_;
};

}  // namespace brindle
