// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What assistive tools are told of every control, in the process itself.

#include <algorithm>
#include <map>
#include <string>

#include <QAccessible>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/editable_list.h"
#include "tests/contract/any_window.h"
#include "tests/contract/contract_table.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

QAccessible::Role RoleOf(Kind kind) {
  static const std::map<Kind, QAccessible::Role> roles{
      {Kind::Picture, QAccessible::Graphic},    {Kind::Label, QAccessible::StaticText},
      {Kind::Button, QAccessible::Button},      {Kind::PictureButton, QAccessible::Button},
      {Kind::SpinButton, QAccessible::Button},  {Kind::CheckBox, QAccessible::CheckBox},
      {Kind::Option, QAccessible::RadioButton}, {Kind::Field, QAccessible::EditableText},
      {Kind::List, QAccessible::ComboBox},      {Kind::Choice, QAccessible::ComboBox},
      {Kind::Slider, QAccessible::Slider},      {Kind::Progress, QAccessible::ProgressBar},
      {Kind::Link, QAccessible::Link},          {Kind::Line, QAccessible::Border},
      {Kind::Frame, QAccessible::Grouping}};
  return roles.at(kind);
}

class Accessible : public AnyWindow, public ::testing::WithParamInterface<ControlRow> {
 protected:
  void SetUp() override {
    control = Find(OpenByName(GetParam().window), QString::fromStdString(GetParam().name));
    ASSERT_NE(control, nullptr);
    interface = QAccessible::queryAccessibleInterface(control);
    ASSERT_NE(interface, nullptr);
  }

  static std::string Text(QAccessibleInterface* of, QAccessible::Text kind) {
    return of->text(kind).toStdString();
  }

  QWidget* control = nullptr;
  QAccessibleInterface* interface = nullptr;
};

TEST_P(Accessible, HasTheRoleOfItsKind) { EXPECT_EQ(interface->role(), RoleOf(GetParam().kind)); }

TEST_P(Accessible, TellsItsValue) {
  const auto& row = GetParam();
  switch (row.kind) {
    case Kind::Field:
    case Kind::List:
    case Kind::Choice:
      EXPECT_EQ(Text(interface, QAccessible::Value), row.caption);
      break;
    case Kind::Slider:
    case Kind::Progress: {
      auto* value = interface->valueInterface();
      ASSERT_NE(value, nullptr);
      EXPECT_LT(value->minimumValue().toDouble(), value->maximumValue().toDouble());
      EXPECT_GE(value->currentValue().toDouble(), value->minimumValue().toDouble());
      EXPECT_LE(value->currentValue().toDouble(), value->maximumValue().toDouble());
      break;
    }
    case Kind::Label:
    case Kind::Link:
      // A text that is not the name itself is told behind it.
      EXPECT_TRUE(row.accessibleName == row.caption || row.caption.empty() ||
                  Text(interface, QAccessible::Description) == row.caption)
          << Text(interface, QAccessible::Description);
      break;
    case Kind::CheckBox:
    case Kind::Option:
      EXPECT_TRUE(interface->state().checkable);
      break;
    default:
      break;
  }
}

TEST_P(Accessible, OffersWhatCanBeDoneWithIt) {
  const auto& row = GetParam();
  const auto state = interface->state();
  switch (row.kind) {
    case Kind::Field:
      EXPECT_EQ(state.readOnly, qobject_cast<QLineEdit*>(control)->isReadOnly());
      EXPECT_NE(interface->textInterface(), nullptr);
      EXPECT_TRUE(state.focusable || state.disabled);
      break;
    case Kind::Button:
    case Kind::PictureButton:
    case Kind::SpinButton:
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Link:
      ASSERT_NE(interface->actionInterface(), nullptr);
      EXPECT_NE(interface->actionInterface()->actionNames().isEmpty(), control->isEnabled());
      break;
    default:
      break;
  }
  if (row.tab != NoTab && row.kind != Kind::Option) {
    EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0);
  }
}

// A list is called by its value on some desktops; there its label, or what is said behind the
// value, tells what it is.
TEST_P(Accessible, OfAListTellsWhatItIs) {
  const auto& row = GetParam();
  if (row.kind != Kind::List && row.kind != Kind::Choice) {
    return;
  }
  // The frame around it is one of them.
  const auto labels = interface->relations(QAccessible::Label);
  const bool isLabelled = std::any_of(labels.begin(), labels.end(), [&](const auto& label) {
    return Text(label.first, QAccessible::Name) == row.accessibleName;
  });
  EXPECT_TRUE(isLabelled || !Text(interface, QAccessible::Description).empty());
  if (auto* list = qobject_cast<EditableList*>(control)) {
    auto* field = QAccessible::queryAccessibleInterface(list->Field());
    EXPECT_EQ(Text(field, QAccessible::Name), row.accessibleName);
    EXPECT_EQ(Text(field, QAccessible::Value), row.caption);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, Accessible, ::testing::ValuesIn(ControlRows()),
                         [](const auto& instance) { return IdentifierOf(instance.param); });

}  // namespace
}  // namespace brindle
