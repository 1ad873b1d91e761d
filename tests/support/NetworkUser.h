// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PageUser.h"
#include "ui/ClButtonNetworkTab.h"

#include <QCheckBox>

inline const QString INFRASTRUCTURE = QStringLiteral("Infrastructure");
inline const QString ADHOC = QStringLiteral("Adhoc");

/// A user before the network page.
class NetworkUser : public PageUser {
public:
    explicit NetworkUser(const QWidget& page) : PageUser(page), m_page(page) {}

    [[nodiscard]] ClButtonNetworkTab& tab(const QString& name) const {
        return named<ClButtonNetworkTab>(
            [&name](const auto& tab) { return tab.accessibleName() == name; });
    }
    void clickTab(const QString& name) const { QTest::mouseClick(&tab(name), Qt::LeftButton); }

    /// The box of the tab @p name, be the tab on show or not.
    [[nodiscard]] QCheckBox& box(const QString& name) const {
        return named<QCheckBox>([&name](const auto& box) { return box.text().contains(name); });
    }
    void clickBox(const QString& name) const { click(box(name).text()); }

private:
    template <class Widget, class Condition>
    [[nodiscard]] Widget& named(const Condition& isMeant) const {
        for (Widget* widget : m_page.findChildren<Widget*>()) {
            if (isMeant(*widget)) {
                return *widget;
            }
        }
        qFatal("The network page has no such control.");
    }

    const QWidget& m_page;
};
