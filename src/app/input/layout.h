// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QPixmap>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace brindle {

// What every window is laid out with, so that all look like one family.

/// Between the edge of a window or frame and what is in it, in device-independent pixels.
inline constexpr int Margin = 12;
/// Between the rows and columns of one frame.
inline constexpr int Spacing = 8;
/// Between frames.
inline constexpr int FrameSpacing = 12;
/// How much larger than the window's text a result is.
inline constexpr double ResultScale = 1.6;

/// A label that shows plain text, never markup.
[[nodiscard]] QLabel* MakeLabel(const QString& text);

/// A push button with a caption; its accessible name is the caption.
[[nodiscard]] QPushButton* MakeButton(const QString& name, const QString& caption,
                                      const QString& tooltip = {});

/// A sentence beside a button: plain text, wrapped to a column that grows with the font.
class DescriptionLabel : public QLabel {
  Q_OBJECT

 public:
  explicit DescriptionLabel(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
};

/// A label for a value. It keeps room for the widest of the texts that it may have to show, so that
/// nothing moves, and nothing is laid out anew, when the value changes.
class ValueLabel : public QLabel {
  Q_OBJECT

 public:
  ValueLabel(const QString& name, const QString& tooltip, QStringList widest);
  /// Shows a text; a screen reader says it behind the label's name.
  void Show(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  // A label of a fixed size does not trouble its layout when its text changes.
  void FixSize();

  QStringList widest_;
};

/// The read-only field of a calculator's main result: large, selectable, copyable.
class ResultField : public QLineEdit {
  Q_OBJECT

 public:
  ResultField(const QString& name, const QString& tooltip, int digits);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  // The program's font made larger; again whenever that changes.
  void FollowFont();

  int digits_;
};

/// A line "label, control, control..." of a frame. A control without an accessible name takes the
/// label; spin buttons take it with "plus" or "minus" behind.
struct Row {
  QString label;
  QList<QWidget*> controls;
};

/// A frame with a caption. It paints itself once and then from its own picture: everything that
/// changes inside a frame has the frame painted under it, at every key.
class Frame : public QGroupBox {
  Q_OBJECT

 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QPixmap picture_;
};

/// A frame with a caption whose rows stand in one grid: labels left, controls right, all aligned.
[[nodiscard]] QGroupBox* MakeFrame(const QString& caption, std::initializer_list<Row> rows);

/// Gives each control "label tooltip" as its accessible name: for controls that share one label.
void NameByTooltip(const QString& label, std::initializer_list<QWidget*> controls);

/// A node of a window's layout tree: a widget, another layout, or room that stretches.
class Item {
 public:
  Item(QWidget* widget)
      : widget_(widget) {}  // NOLINT(google-explicit-constructor): a tree of nodes
  Item(QLayout* layout) : layout_(layout) {}  // NOLINT(google-explicit-constructor)
  static Item Stretch() { return {static_cast<QWidget*>(nullptr)}; }

  void AddTo(QBoxLayout* box) const;

 private:
  QWidget* widget_ = nullptr;
  QLayout* layout_ = nullptr;
};

[[nodiscard]] QBoxLayout* Across(std::initializer_list<Item> items, int spacing = FrameSpacing);
[[nodiscard]] QBoxLayout* Down(std::initializer_list<Item> items, int spacing = FrameSpacing);

/// Frames in a grid: each inner list is a row of equally high frames, each column equally wide
/// ones.
[[nodiscard]] QLayout* Tiles(std::initializer_list<std::initializer_list<QWidget*>> rows);

/// Puts the tree into the window, which is from then on exactly as large as its contents ask for,
/// whatever the font.
void LayOut(QWidget* window, QLayout* tree);

}  // namespace brindle
