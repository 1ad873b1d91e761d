// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

/// The badge that names the encryption of an access point; an open one has none.
class ClWidgetEncryption : public QWidget {
    Q_OBJECT

public:
    explicit ClWidgetEncryption(int type, QWidget* parent = nullptr);

    /// Shows the encryption @p type as the camera codes it: 1 WEP, 2 TKIP, 4 AES. 0 and -1 make the
    /// badge collapse; any other type leaves it as it is.
    void setValue(int type);

    /// The name of the encryption; empty without one.
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool getIsEncryption() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_label;
};
