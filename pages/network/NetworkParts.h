// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QDialogButtonBox;
class QString;
class QWidget;

/// The tabs of the network page, by their index.
enum NetworkTab : int { INFRASTRUCTURE_TAB, ADHOC_TAB };

/// Two buttons: @p accept in the accept role, @p reject in the reject role.
[[nodiscard]] std::unique_ptr<QDialogButtonBox> createPageButtonBox(const QString& accept,
                                                                    const QString& reject);

/// The buttons "Decision" (accept role) and "Back" (reject role) at the bottom of a network page,
/// of which they become children. Return in a line edit that the page has by now is "Decision",
/// too, for that is the button that shows as the default one.
QDialogButtonBox* addDecisionBox(int y, QWidget* page);
