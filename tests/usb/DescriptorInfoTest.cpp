// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ControllerBench.h"
#include "tests/usb/UserInterface.h"
#include "usb/ClUsbManager.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

constexpr std::array<unsigned char, 3> EXTRA{0x00, 0x0F, 0xA5};

const QByteArray DEVICE =
    "----------Descriptor----------\n"
    "UsbVersion:2.16\n"
    "DeviceClass:0xef SubClass:0x2 Protocol:0x1\n"
    "Max packet size of Endpoint 0:64\n"
    "VendorId:0xabcd ProductId:0x12\n"
    "Device release number:258\n"
    "Manufacturer:1\n"
    "Product:2\n"
    "Serial Number:3\n"
    "Configurations count:4\n";

const QByteArray CONFIGURATION =
    "TotalLength:300\n"
    "Interface Count:2\n"
    "Configuration value:1, Configuration:5, Attribute:160\n"
    "MaxPower:250\n";

const QByteArray INTERFACE =
    "Number:1\n"
    "AlternateSetting:2\n"
    "Endpoint count:3\n"
    "Interface Class:255 SubClass:6 Protocol:80\n"
    "Interface:7\n";

const QByteArray ENDPOINT =
    "Address:81 number:1 in\n"
    "Attributes transfer:1 iso sync:2 iso usage:3\n"
    "Max packet size:512\n"
    "Interal:9\n"
    "(Audio only) Refresh:4 Synch address:5\n";

// Two interfaces, of which the first has two settings.
const QByteArray DUMP_OF_TWO_INTERFACES =
    "----------Descriptor----------\n"
    "UsbVersion:2.0\n"
    "DeviceClass:0x0 SubClass:0x0 Protocol:0x0\n"
    "Max packet size of Endpoint 0:64\n"
    "VendorId:0xaaaa ProductId:0xbbb\n"
    "Device release number:256\n"
    "Manufacturer:0\n"
    "Product:0\n"
    "Serial Number:0\n"
    "Configurations count:1\n"
    "\n"
    "----------Config:0-----------\n"
    "TotalLength:68\n"
    "Interface Count:2\n"
    "Configuration value:1, Configuration:0, Attribute:128\n"
    "MaxPower:250\n"
    "\n"
    "----------Interface:0-----------\n"
    "Number:0\n"
    "AlternateSetting:0\n"
    "Endpoint count:2\n"
    "Interface Class:255 SubClass:0 Protocol:0\n"
    "Interface:0\n"
    "\n"
    "----------Endpoint:0-----------\n"
    "Address:81 number:1 in\n"
    "Attributes transfer:2 iso sync:0 iso usage:0\n"
    "Max packet size:512\n"
    "Interal:0\n"
    "(Audio only) Refresh:0 Synch address:0\n"
    "\n"
    "----------Endpoint:1-----------\n"
    "Address:2 number:2 out\n"
    "Attributes transfer:2 iso sync:0 iso usage:0\n"
    "Max packet size:512\n"
    "Interal:0\n"
    "(Audio only) Refresh:0 Synch address:0\n"
    "\n"
    "----------Interface:1-----------\n"
    "Number:0\n"
    "AlternateSetting:1\n"
    "Endpoint count:1\n"
    "Interface Class:255 SubClass:0 Protocol:0\n"
    "Interface:0\n"
    "Extra:04 24 0a ff \n"
    "\n"
    "----------Endpoint:0-----------\n"
    "Address:87 number:3 in\n"
    "Attributes transfer:2 iso sync:0 iso usage:0\n"
    "Max packet size:512\n"
    "Interal:0\n"
    "(Audio only) Refresh:0 Synch address:0\n"
    "\n";

DeviceOptions twoInterfaces() {
    InterfaceDescription first = interfaceWith({0x81, 0x02});
    first.alternates.push_back(interfaceWith({0x87}).alternates.front());
    first.alternates.back().extra = {0x04, 0x24, 0x0A, 0xFF};
    DeviceOptions options = deviceWith({first, interfaceWith({0x84})});
    options.description.vendorId = 0xAAAA;
    options.description.productId = 0x0BBB;
    return options;
}

}  // namespace

/// The dumps of descriptors, letter by letter. The fields of a descriptor stand in the order of the
/// bus, which is also that of its dump but for the length and the type, which are not dumped.
class DescriptorInfoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDeviceIsDumped();
    void aConfigurationIsDumped_data() { addHeaders("Config"); }
    void aConfigurationIsDumped();
    void anInterfaceIsDumped_data() { addHeaders("Interface"); }
    void anInterfaceIsDumped();
    void anEndpointIsDumped_data() { addHeaders("Endpoint"); }
    void anEndpointIsDumped();
    void anEndpointTellsItsDirectionAndTheLowestBitsOfItsNumber_data();
    void anEndpointTellsItsDirectionAndTheLowestBitsOfItsNumber();
    void extraBytesEndADump();
    void theFirstInterfaceOfADeviceIsSent();
    void everyConfigurationOfADeviceIsSent();
    void aDeviceWithoutInterfacesIsSent();

private:
    static void addHeaders(const QByteArray& kind);
    /// The one message that dumps the device of @p bench.
    QString dumpOf(ControllerBench& bench);

    ClUsbManager m_manager;
};

void DescriptorInfoTest::addHeaders(const QByteArray& kind) {
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("first") << 0 << "----------" + kind + ":0-----------\n";
    QTest::newRow("twelfth") << 11 << "----------" + kind + ":11-----------\n";
    QTest::newRow("not counted") << -1 << "----------" + kind + "----------\n";
}

void DescriptorInfoTest::aDeviceIsDumped() {
    libusb_device_descriptor descriptor{18,     LIBUSB_DT_DEVICE, 0x0210, 0xEF, 2, 1, 64,
                                        0xABCD, 0x0012,           0x0102, 1,    2, 3, 4};
    QCOMPARE(m_manager.getDeviceDescriptorInfo(&descriptor).toLatin1(), DEVICE);
}

void DescriptorInfoTest::aConfigurationIsDumped() {
    QFETCH(const int, index);
    QFETCH(const QByteArray, header);
    // The extra bytes of a configuration are not part of its dump.
    libusb_config_descriptor descriptor{
        9, LIBUSB_DT_CONFIG, 300, 2, 1, 5, 0xA0, 250, nullptr, EXTRA.data(), int{EXTRA.size()}};
    QCOMPARE(m_manager.getConfigDescriptorInfo(&descriptor, index).toLatin1(),
             header + CONFIGURATION);
}

void DescriptorInfoTest::anInterfaceIsDumped() {
    QFETCH(const int, index);
    QFETCH(const QByteArray, header);
    libusb_interface_descriptor descriptor{
        9, LIBUSB_DT_INTERFACE, 1, 2, 3, 255, 6, 80, 7, nullptr, nullptr, 0};
    QCOMPARE(m_manager.getInterfaceDescriptorInfo(&descriptor, index).toLatin1(),
             header + INTERFACE);
}

void DescriptorInfoTest::anEndpointIsDumped() {
    QFETCH(const int, index);
    QFETCH(const QByteArray, header);
    libusb_endpoint_descriptor descriptor{7, LIBUSB_DT_ENDPOINT, 0x81, 0x39, 512, 9, 4, 5, nullptr,
                                          0};
    QCOMPARE(m_manager.getEndpointDescriptorInfo(&descriptor, index).toLatin1(), header + ENDPOINT);
}

void DescriptorInfoTest::anEndpointTellsItsDirectionAndTheLowestBitsOfItsNumber_data() {
    QTest::addColumn<int>("address");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("0x81") << 0x81 << QByteArray("Address:81 number:1 in");
    QTest::newRow("0x02") << 0x02 << QByteArray("Address:2 number:2 out");
    QTest::newRow("0x84") << 0x84 << QByteArray("Address:84 number:0 in");
    QTest::newRow("0x0F") << 0x0F << QByteArray("Address:f number:3 out");
}

void DescriptorInfoTest::anEndpointTellsItsDirectionAndTheLowestBitsOfItsNumber() {
    QFETCH(const int, address);
    libusb_endpoint_descriptor descriptor{};
    descriptor.bEndpointAddress = static_cast<std::uint8_t>(address);
    QTEST(m_manager.getEndpointDescriptorInfo(&descriptor, -1).toLatin1().split('\n').at(1),
          "line");
}

void DescriptorInfoTest::extraBytesEndADump() {
    libusb_interface_descriptor interface {};
    interface.extra = EXTRA.data();
    interface.extra_length = static_cast<int>(EXTRA.size());
    QVERIFY(m_manager.getInterfaceDescriptorInfo(&interface, 0)
                .endsWith(QStringLiteral("\nInterface:0\nExtra:00 0f a5 \n")));
    libusb_endpoint_descriptor endpoint{};
    endpoint.extra = EXTRA.data();
    endpoint.extra_length = static_cast<int>(EXTRA.size());
    QVERIFY(m_manager.getEndpointDescriptorInfo(&endpoint, 0)
                .endsWith(QStringLiteral(" Synch address:0\nExtra:00 0f a5 \n")));
}

QString DescriptorInfoTest::dumpOf(ControllerBench& bench) {
    UserInterface ui(m_manager);
    m_manager.sendDeviceInfo(bench.devices.devices().front());
    if (!QTest::qWaitFor([&] { return ui.arrivals().size() == 1; }, PATIENCE_MS)) {
        return {};
    }
    const VX_CMD& message = ui.arrivals().first().message;
    const bool isDump = getCommand(message) == USB_CMD_DESCRIPTOR_INFO &&
                        message.keys() == QStringList{Key::CMD, Key::PARAM1};
    return isDump ? message.value(Key::PARAM1).toString() : QString();
}

void DescriptorInfoTest::theFirstInterfaceOfADeviceIsSent() {
    ControllerBench bench(twoInterfaces());
    QCOMPARE(dumpOf(bench).toLatin1().split('\n'), DUMP_OF_TWO_INTERFACES.split('\n'));
}

void DescriptorInfoTest::everyConfigurationOfADeviceIsSent() {
    DeviceOptions options;
    options.description.configurationCount = 3;
    ControllerBench bench(options);
    const QString dump = dumpOf(bench);
    QCOMPARE(dump.count(QStringLiteral("--Config:")), 3);
    QCOMPARE(dump.count(QStringLiteral("--Interface:0-")), 3);
    QCOMPARE(dump.count(QStringLiteral("--Endpoint:")), 6);
    QVERIFY(dump.contains(QStringLiteral("Config:2-----------\n")));
    QVERIFY(dump.contains(QStringLiteral("Configuration value:3,")));
}

void DescriptorInfoTest::aDeviceWithoutInterfacesIsSent() {
    ControllerBench bench(deviceWith({}));
    const QString dump = dumpOf(bench);
    QVERIFY(dump.contains(QStringLiteral("Configurations count:1\n\n----------Config:0-")));
    QVERIFY(dump.endsWith(QStringLiteral("MaxPower:250\n\n")));
    QVERIFY(!dump.contains(QStringLiteral("--Interface:")));
}

const TestSubject registered = subjectWithoutScreen<DescriptorInfoTest>();
#include "DescriptorInfoTest.moc"
