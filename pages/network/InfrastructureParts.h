// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QPushButton;
class QWidget;

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
