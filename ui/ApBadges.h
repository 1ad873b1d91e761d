// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>

// The marks in a row with an access point.

/// The check mark of the access point that the camera is linked to; empty at first.
class ClLinkCheck : public QLabel {
    Q_OBJECT

public:
    explicit ClLinkCheck(QWidget* parent = nullptr);

    /// Shows or removes the mark and resizes the label to it.
    void setCheck(bool checked);
};

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

/// The signal strength of an access point, as a picture of one to three bars.
class ClWidgetRssi : public QLabel {
    Q_OBJECT

public:
    explicit ClWidgetRssi(int rssi, QWidget* parent = nullptr);

    /// Shows @p rssi, about a percentage, and resizes to the picture. There is none for 0 and less.
    void setValue(int rssi);
};
