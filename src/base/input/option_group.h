// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include <QButtonGroup>
#include <QObject>
#include <QPaintEvent>
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

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int index_;
};

/// What an option of an array is made from.
struct Option {
  int index = 0;
  QString caption;
  QString tooltip;
};

/// An array of options of which at most one is selected; none is at creation. The options belong to
/// it, wherever they are laid out.
class OptionGroup : public QObject {
  Q_OBJECT

 public:
  explicit OptionGroup(const QString& name, std::initializer_list<Option> options = {});

  /// Adds the option with this index.
  OptionButton* Add(int index, const QString& caption, const QString& tooltip);

  /// The option with this index, for the layout; null if there is none.
  [[nodiscard]] OptionButton* At(int index) const;

  /// Selects an option; an index that no option has changes nothing.
  void Select(int index);

  /// The index of the selected option; empty if none is.
  [[nodiscard]] std::optional<int> Selected() const;

  /// Where Tab stops: the selected option, or the first one if none is.
  [[nodiscard]] OptionButton* TabStop() const;

  [[nodiscard]] std::vector<OptionButton*> Buttons() const;

 Q_SIGNALS:
  /// An option became selected, by the user or by the program.
  void Click(int index);

 private:
  // Until an option has had the focus, the toolkit would let Tab stop at the first one.
  void StopTabAtSelected();

  QButtonGroup exclusive_;
  std::vector<std::unique_ptr<OptionButton>> buttons_;
};

}  // namespace brindle
