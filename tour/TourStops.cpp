// SPDX-License-Identifier: MIT
#include "tour/TourStops.h"

#include "pages/basic/ClBasicSettingText.h"
#include "ui/ClButtonMode.h"
#include "ui/ClButtonNetworkTab.h"
#include "ui/ClLabelSsid.h"
#include "ui/ClWidgetApInfo.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <utility>

namespace {

template <class Widget>
QList<Widget*> visible(const QWidget& shown) {
    QList<Widget*> widgets = shown.findChildren<Widget*>();
    widgets.removeIf([](const Widget* widget) { return !widget->isVisible(); });
    return widgets;
}

template <class Button, int INDEX>
bool click(const QWidget& shown) {
    Button* button = visible<Button>(shown).value(INDEX);
    if (button != nullptr) {
        QTest::mouseClick(button, Qt::LeftButton);
    }
    return button != nullptr;
}

bool chooseFirstAccesspoint(const QWidget& shown) {
    ClWidgetApInfo* row = visible<ClWidgetApInfo>(shown).value(0);
    if (row != nullptr) {
        QTest::mouseDClick(row, Qt::LeftButton);
    }
    return row != nullptr;
}

bool decideOnNoAddress(const QWidget& shown) {
    QLineEdit* address = visible<QLineEdit>(shown).value(0);
    if (address != nullptr) {
        address->clear();
    }
    return address != nullptr && click<QPushButton, 0>(shown);
}

bool showsEverything(const QWidget& /*shown*/) {
    return true;
}

bool showsValues(const QWidget& shown) {
    const auto isUnknown = [](const auto* widget) { return widget->text().contains(u"--"); };
    return std::ranges::none_of(visible<QLabel>(shown), isUnknown) &&
           std::ranges::none_of(visible<QPushButton>(shown), isUnknown) &&
           std::ranges::none_of(visible<QLineEdit>(shown), &QString::isEmpty, &QLineEdit::text);
}

bool showsAccesspoint(const QWidget& shown) {
    return std::ranges::any_of(visible<ClLabelSsid>(shown),
                               [](const QLabel* ssid) { return !ssid->text().isEmpty(); });
}

// The mode, which the check box follows, is what the page reads last.
bool showsNetwork(const QWidget& shown) {
    return showsAccesspoint(shown) &&
           std::ranges::any_of(visible<QCheckBox>(shown), &QCheckBox::isChecked);
}

template <int INDEX>
stStop dialog(const char* name, std::vector<stStop> inner = {}) {
    return {eStop::Dialog, name, click<QPushButton, INDEX>, showsEverything, std::move(inner)};
}

template <int INDEX>
stStop subPage(const char* name, bool (*isReady)(const QWidget&), std::vector<stStop> inner = {}) {
    return {eStop::SubPage, name, click<QPushButton, INDEX>, isReady, std::move(inner)};
}

std::vector<stStop> networkStops() {
    return {
        subPage<1>("network-search", showsAccesspoint,
                   {{eStop::Dialog, "network-key", chooseFirstAccesspoint, showsEverything, {}}}),
        subPage<2>("network-manual", showsEverything),
        subPage<0>("network-dhcp", showsValues),
        {eStop::SubPage,
         "network-adhoc",
         click<ClButtonNetworkTab, 1>,
         showsValues,
         {{eStop::Dialog, "network-refused", decideOnNoAddress, showsEverything, {}}}},
    };
}

/// A dialog of the basic settings, behind the button that is called @p button.
stStop basicSetting(const char* button, const char* name, std::vector<stStop> inner = {}) {
    const auto enter = [button](const QWidget& shown) {
        const QString text = ClBasicSettingText::tr(button);
        const QList<QPushButton*> buttons = visible<QPushButton>(shown);
        const auto found = std::ranges::find_if(buttons, [&text](const QPushButton* shownButton) {
            // The name of the one with the camera's name is not its text.
            return shownButton->text() == text || shownButton->accessibleName() == text;
        });
        if (found != buttons.end()) {
            QTest::mouseClick(*found, Qt::LeftButton);
        }
        return found != buttons.end();
    };
    return {eStop::Dialog, name, enter, showsEverything, std::move(inner), button};
}

std::vector<stStop> basicSettingStops() {
    return {
        basicSetting("Setting camera name", "basic-setting-camera-name"),
        basicSetting("Setting time zone", "basic-setting-time-zone"),
        basicSetting("Setting time", "basic-setting-time", {dialog<1>("basic-setting-calendar")}),
        basicSetting("Setting auto Wi-Fi off", "basic-setting-auto-wifi-off"),
        basicSetting("Setting Wi-Fi country", "basic-setting-wifi-country"),
        basicSetting("Setting auto power off", "basic-setting-auto-power-off"),
        basicSetting("Setting LED", "basic-setting-led"),
        basicSetting("Setting GPS", "basic-setting-gps"),
        basicSetting("Setting user authorization", "basic-setting-authorization"),
        basicSetting("Setting interval", "basic-setting-interval"),
        basicSetting("Image quarity", "basic-setting-image-quality"),
    };
}

}  // namespace

std::vector<stStop> tourStops() {
    return {
        {eStop::Page,
         "camera-state",
         click<ClButtonMode, 0>,
         showsValues,
         {
             dialog<0>("camera-state-format"),
             dialog<1>("camera-state-initialize"),
             dialog<2>("camera-state-reset"),
         }},
        {eStop::Page, "network", click<ClButtonMode, 1>, showsNetwork, networkStops()},
        {eStop::Page, "basic-setting", click<ClButtonMode, 2>, showsValues, basicSettingStops()},
        {eStop::Page,
         "stream",
         click<ClButtonMode, 3>,
         showsEverything,
         {dialog<0>("stream-recording"), dialog<1>("stream-live-view")}},
        {eStop::Page, "help", click<ClButtonMode, 4>, showsValues, {}},
    };
}
