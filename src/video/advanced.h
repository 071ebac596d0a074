// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/form.h"
#include "base/input/option_group.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"

class QCheckBox;

namespace brindle {

/// The overhead settings: whether the AVI container's own overhead is counted, and how often audio
/// is interleaved.
class Advanced : public Form {
  Q_OBJECT

 public:
  explicit Advanced(Services& services);

 private:
  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void AOver_Click();
  void VOver_Click();
  void InterlOpt_Click(int index);
  void Itime_GotFocus();
  void Iframe1_GotFocus();
  void Iframe2_GotFocus();
  void Iframe3_GotFocus();
  void Command1_Click();

  enum class Interleaving { WhenTicked, Always };
  void CalcOverheads(Interleaving counted);
  [[nodiscard]] double InterleaveOverheadOf(int option) const;
  void RefreshOpener();
  void DisableInterleaveInputs();
  void EnableInterleaveInputs();
  void EnableOnly(int option);  // the interval of this option and no other
  [[nodiscard]] TextField* IntervalOf(int option) const;

  Services& services_;
  Settings& record_;

  QCheckBox* AOver;
  QCheckBox* VOver;
  OptionGroup InterlOpt;
  TextField* Itime;
  TextField* Iframe1;
  TextField* Iframe2;
  TextField* Iframe3;
  QPushButton* Command1;
};

}  // namespace brindle
