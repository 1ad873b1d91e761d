// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <memory>

class QDialogButtonBox;
class QPushButton;
class QString;
class QWidget;

// What the network pages have in common.

/// The tabs of the network page, by their index.
enum NetworkTab : int { INFRASTRUCTURE_TAB, ADHOC_TAB };

/// Two buttons: @p accept in the accept role, @p reject in the reject role.
[[nodiscard]] std::unique_ptr<QDialogButtonBox> createPageButtonBox(const QString& accept,
                                                                    const QString& reject);

/// The buttons "Decision" (accept role) and "Back" (reject role) at the bottom of a network page,
/// of which they become children. As in a dialog, Return presses "Decision", in every line edit
/// that the page already has, and Escape presses "Back".
QDialogButtonBox* addDecisionBox(int y, QWidget* page);

/// The sub-pages of the infrastructure tab, by their index.
enum InfrastructurePage : int {
    INFRASTRUCTURE_TOP,
    INFRASTRUCTURE_SEARCH,
    INFRASTRUCTURE_MANUAL,
    INFRASTRUCTURE_DHCP,
};

/// A bar across the page @p page, with a button for each of @p texts at its right end, from left to
/// right. They become children of the page.
QList<QPushButton*> addButtonBar(const QStringList& texts, int y, QWidget* page);
