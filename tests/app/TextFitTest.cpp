// SPDX-License-Identifier: MIT
#include "tests/support/TextFit.h"

#include "app/Startup.h"
#include "pages/basic/BasicSettingRows.h"
#include "tests/app/BusBench.h"
#include "tour/ClTour.h"

#include <QLocale>
#include <QPushButton>
#include <QTranslator>

#include <algorithm>
#include <string_view>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace {

/// A camera whose values are the widest that a user meets.
CameraState widestState() {
    CameraState state;
    const std::string widestSsid(32, 'W');
    state.battery.charge = 100;
    state.sdCard = {.total = 2'147'483'648, .used = 2'147'483'647};
    state.settings.cameraName = std::string(8, 'W');
    state.settings.wifi.ssid = widestSsid;
    state.settings.wifi.secondSsid = widestSsid;
    state.settings.wifi.channel = 165;
    state.settings.wifi.encryption = 2;
    state.settings.wifi.rssi = 100;
    state.settings.infraSsid = widestSsid;
    state.settings.infraAddress = 0xDFFFFFFE;
    state.settings.infraGateway = 0xDFFFFFFE;
    state.settings.infraSubnetMask = 0xFFFFFFFC;
    state.settings.adhocAddress = 0xDFFFFFFE;
    state.settings.adhocSubnetMask = 0xFFFFFFFC;
    state.settings.autoPowerOff = 72 * 3600;
    state.settings.autoWifiOff = 600;
    state.settings.timeZone = 0;
    state.identity.serialNumber = std::string(32, 'W');
    state.identity.ssid = widestSsid;
    state.identity.adhocKey = std::string(63, 'W');
    state.identity.firmwareVersion = std::string(16, '8');
    state.accessPoints.assign(20, {widestSsid, 165, 2, 100});
    return state;
}

constexpr int BUTTON_ROOM = 12;  // pixels on each side of a text

QStringList crampedButtons(const QWidget& shown) {
    QStringList cramped;
    for (const QPushButton* const button : shown.findChildren<QPushButton*>()) {
        const int text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        if (button->isVisible() && !button->text().isEmpty() &&
            button->width() < text + 2 * BUTTON_ROOM) {
            cramped << u"no room beside '%1'"_s.arg(button->text());
        }
    }
    return cramped;
}

}  // namespace

/// Everything that the tool shows, in each of its languages, with a camera's values in it.
class TextFitTest : public QObject {
    Q_OBJECT

public:
    explicit TextFitTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    static void initTestCase() { installFonts(); }
    static void everyBasicSettingIsVisited();
    static void everyTextHasItsPlace_data();
    void everyTextHasItsPlace();

private:
    VirtualUsbBus& m_bus;
};

void TextFitTest::everyBasicSettingIsVisited() {
    const std::vector<stStop> stops = tourStops();
    const auto page = std::ranges::find(stops, "basic-setting"sv, &stStop::name);
    QVERIFY(page != stops.end());
    for (const stBasicSettingRow& row : basicSettingRows()) {
        const std::string_view button =
            row.text != nullptr ? row.text : sectionCaption(row.section);
        const auto leadsHere = [button](const stStop& stop) {
            return stop.button != nullptr && button == stop.button;
        };
        QVERIFY2(std::ranges::any_of(page->inner, leadsHere), button.data());
    }
}

void TextFitTest::everyTextHasItsPlace_data() {
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<CameraState>("state");
    const QLocale english(QLocale::English);
    const QLocale japanese(QLocale::Japanese);
    const CameraState usual;
    const CameraState widest = widestState();
    QTest::newRow("English") << u":/lang/en"_s << english << usual;
    QTest::newRow("English, widest values") << u":/lang/en"_s << english << widest;
    QTest::newRow("Japanese") << u":/lang/ja"_s << japanese << usual;
    QTest::newRow("Japanese, widest values") << u":/lang/ja"_s << japanese << widest;
}

void TextFitTest::everyTextHasItsPlace() {
    QFETCH(QString, catalogue);
    QFETCH(QLocale, locale);
    QFETCH(CameraState, state);
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QCoreApplication::installTranslator(&translator);
    QLocale::setDefault(locale);
    const auto camera = std::make_shared<VirtualCamera>();
    camera->setState(state);
    const DeviceId id = m_bus.plug(camera);

    QStringList complaints;
    {
        ClMainWidget window(SHORT_USB_TIMES);
        window.show();
        ClTour tour(window, [&complaints](const QWidget& shown, const QString& name) {
            for (const QString& complaint : misplacedTexts(shown) + crampedButtons(shown)) {
                complaints << u"%1: %2"_s.arg(name, complaint);
            }
            return true;
        });
        QVERIFY(tour.run());
    }
    m_bus.settle();
    m_bus.unplug(id);
    QVERIFY2(complaints.isEmpty(), qPrintable(u'\n' + complaints.join(u'\n')));
}

const TestSubject registered = subjectOnBus<TextFitTest>();

#include "TextFitTest.moc"
