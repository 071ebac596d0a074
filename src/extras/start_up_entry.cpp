// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "extras/start_up_entry.h"

#include <memory>

#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// Closes a key once it is no longer needed: when the box is answered, or the program ends.
class OpenedKey {
 public:
  OpenedKey(Registry& registry, Registry::Key key) : registry_(registry), key_(key) {}
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;
  OpenedKey(OpenedKey&&) = delete;
  OpenedKey& operator=(OpenedKey&&) = delete;
  ~OpenedKey() { registry_.CloseKey(key_); }

 private:
  Registry& registry_;
  Registry::Key key_;
};

}  // namespace

void RemoveStartUpEntry(QWidget* owner, MessageBoxes& boxes, Registry& registry) {
  const auto question =
      u"The program will attempt to disable DivX pro's GAIN spyware by\r\n"
      "removing it from the registry. It has been tested under Win ME\r\n"
      "and XP for DivX 5.0 to 5.02. Are you sure you wish to continue?"_s;
  boxes.Ask(owner, question, BoxButtons::YesNo, [owner, &boxes, &registry](BoxAnswer answer) {
    if (answer == BoxAnswer::Yes) {
      DeleteRunValue(owner, boxes, registry, RegistryRoot::LocalMachine,
                     u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run"_s, u"Trickler"_s);
    }
  });
}

void DeleteRunValue(QWidget* owner, MessageBoxes& boxes, Registry& registry, RegistryRoot root,
                    const QString& subKey, const QString& valueName) {
  Registry::Key key = 0;
  // Deliberately ignored: without an open key the deletion fails, too, and the user sees the same
  // message (StartUpEntry, FromAKeyThatDoesNotOpenTheDeletionIsTriedAllTheSame).
  [[maybe_unused]] const auto opened = registry.OpenKey(root, subKey, key);
  const auto openedKey = std::make_shared<OpenedKey>(registry, key);
  const bool deleted = registry.DeleteValue(key, valueName) == 0;
  // The buttons Cancel, Try Again and Continue are deliberate, though no answer changes anything:
  // users know the box this way (AnswerToTheOutcome, DoesNotMatter).
  boxes.Ask(
      owner,
      deleted ? u"GAIN spyware was successfully disabled."_s : u"Error disabling GAIN spyware."_s,
      BoxButtons::CancelTryAgainContinue, [openedKey](BoxAnswer) {});
}

}  // namespace brindle
