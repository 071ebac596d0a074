// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QProcess>
#include <QString>

#include "shell/command_run.h"

namespace brindle {

QString CommandLineName() { return QStringLiteral("brindle"); }

void AskToEnd(QProcess& process) { process.terminate(); }

}  // namespace brindle
