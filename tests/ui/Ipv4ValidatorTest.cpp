// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "ui/ClIpv4Validator.h"

#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// Typing an address, as a user does, and the answers behind it.
class Ipv4ValidatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsWhatWasTyped_data();
    void showsWhatWasTyped();
    void takesItsDotBack();
    void appendsItsDotAgain();
    void leavesADotAloneThatAnotherKeyFollowed();
    void clearsAField();
    void keepsTheCursorInTheFieldWhenTheStartGoes();
    void takesAWholeAddress();

    void judges_data();
    void judges();
    void neverAnswersIntermediate();
    void forgetsWhatItRefused();

private:
    std::unique_ptr<QLineEdit> m_edit;
};

void Ipv4ValidatorTest::init() {
    m_edit = std::make_unique<QLineEdit>();
    m_edit->setValidator(new ClIpv4Validator(m_edit.get()));
}

void Ipv4ValidatorTest::showsWhatWasTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString& typed, const QString& shown) {
        QTest::newRow(qPrintable(typed)) << typed << shown;
    };
    row(u"192"_s, u"192."_s);
    row(u"19"_s, u"19"_s);
    row(u"99"_s, u"99"_s);
    row(u"100"_s, u"100."_s);
    row(u"099"_s, u"099"_s);
    row(u"1921681001"_s, u"192.168.100.1"_s);
    row(u"192168100200"_s, u"192.168.100.200"_s);
    row(u"10.0.0.1"_s, u"10.0.0.1"_s);
    row(u"300"_s, u"30"_s);
    row(u"256"_s, u"25"_s);
    row(u"00"_s, u"0"_s);
    row(u"01"_s, u"01"_s);
    row(u"1..2"_s, u"1.2"_s);
    row(u".1"_s, u"1"_s);
    row(u"1.2.3.4.5"_s, u"1.2.3.45"_s);
    row(u"1a2b3"_s, u"123."_s);
    row(u"0.0.0.0"_s, u"0.0.0.0"_s);
}

void Ipv4ValidatorTest::showsWhatWasTyped() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QTest::keyClicks(m_edit.get(), typed);
    QCOMPARE(m_edit->text(), shown);
    QCOMPARE(m_edit->cursorPosition(), shown.size());
    QVERIFY(m_edit->hasAcceptableInput());
}

void Ipv4ValidatorTest::takesItsDotBack() {
    QTest::keyClicks(m_edit.get(), u"192"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QCOMPARE(m_edit->text(), u"19"_s);
    QCOMPARE(m_edit->cursorPosition(), 2);

    QTest::keyClicks(m_edit.get(), u"2168"_s);
    QCOMPARE(m_edit->text(), u"192.168."_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QCOMPARE(m_edit->text(), u"192.16"_s);
    QCOMPARE(m_edit->cursorPosition(), 6);
}

void Ipv4ValidatorTest::appendsItsDotAgain() {
    QTest::keyClicks(m_edit.get(), u"192"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QTest::keyClicks(m_edit.get(), u"8"_s);
    QCOMPARE(m_edit->text(), u"198."_s);
}

void Ipv4ValidatorTest::leavesADotAloneThatAnotherKeyFollowed() {
    QTest::keyClicks(m_edit.get(), u"1921"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QCOMPARE(m_edit->text(), u"192."_s);
}

void Ipv4ValidatorTest::clearsAField() {
    QTest::keyClicks(m_edit.get(), u"192"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(m_edit.get(), Qt::Key_Delete);
    QCOMPARE(m_edit->text(), QString());
    QCOMPARE(m_edit->cursorPosition(), 0);
    QTest::keyClicks(m_edit.get(), u"10.1"_s);
    QCOMPARE(m_edit->text(), u"10.1"_s);
}

void Ipv4ValidatorTest::keepsTheCursorInTheFieldWhenTheStartGoes() {
    QTest::keyClicks(m_edit.get(), u"192"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Home);
    QTest::keyClick(m_edit.get(), Qt::Key_Delete);
    QCOMPARE(m_edit->text(), u"92"_s);
    QCOMPARE(m_edit->cursorPosition(), 0);
}

void Ipv4ValidatorTest::takesAWholeAddress() {
    m_edit->setText(u"192.168.1.20"_s);
    QCOMPARE(m_edit->text(), u"192.168.1.20"_s);
    QTest::keyClick(m_edit.get(), Qt::Key_Backspace);
    QTest::keyClicks(m_edit.get(), u"55"_s);
    QCOMPARE(m_edit->text(), u"192.168.1.255"_s);
}

void Ipv4ValidatorTest::judges_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    QTest::addColumn<QString>("changed");
    const auto accepted = [](const QString& text, const QString& changed) {
        QTest::newRow(text.isEmpty() ? "empty" : qPrintable(text))
            << text << QValidator::Acceptable << changed;
    };
    const auto refused = [](const QString& text) {
        QTest::newRow(qPrintable(text)) << text << QValidator::Invalid << text;
    };
    accepted(QString(), QString());
    accepted(u"0"_s, u"0"_s);
    accepted(u"1.2."_s, u"1.2."_s);
    accepted(u"01"_s, u"01"_s);
    accepted(u"1.2.3.4"_s, u"1.2.3.4"_s);
    accepted(u"1.2.3."_s, u"1.2.3."_s);
    accepted(u"1.100"_s, u"1.100."_s);
    accepted(u"1.2.100"_s, u"1.2.100."_s);
    accepted(u"1.2.3.100"_s, u"1.2.3.100"_s);
    accepted(u"100.2"_s, u"100.2"_s);
    refused(u"1..2"_s);
    refused(u"1.."_s);
    refused(u".1"_s);
    refused(u"1.2.3.4.5"_s);
    refused(u"1.2.3.4."_s);
    refused(u"300"_s);
    refused(u"256"_s);
    refused(u"00"_s);
    refused(u"000"_s);
    refused(u"1.00"_s);
    refused(u"a"_s);
    refused(u"1.b"_s);
    refused(u"0x1"_s);
}

void Ipv4ValidatorTest::judges() {
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);
    QFETCH(QString, changed);
    const ClIpv4Validator validator;
    int position = static_cast<int>(text.size());
    QCOMPARE(validator.validate(text, position), state);
    QCOMPARE(text, changed);
    QCOMPARE(position, changed.size());
}

void Ipv4ValidatorTest::neverAnswersIntermediate() {
    for (int octet = 0; octet < 1000; ++octet) {
        for (const QString& head : {u""_s, u"1."_s, u"1.2."_s, u"1.2.3."_s}) {
            const ClIpv4Validator validator;
            QString text = head + QString::number(octet);
            int position = static_cast<int>(text.size());
            QCOMPARE(validator.validate(text, position),
                     octet < 256 ? QValidator::Acceptable : QValidator::Invalid);
            QCOMPARE(text.endsWith(u'.'), octet >= 100 && octet < 256 && head != "1.2.3."_L1);
        }
    }
}

void Ipv4ValidatorTest::forgetsWhatItRefused() {
    const ClIpv4Validator validator;
    const auto shown = [&](QString text) {
        int position = static_cast<int>(text.size());
        static_cast<void>(validator.validate(text, position));
        return text;
    };
    QCOMPARE(shown(u"192"_s), u"192."_s);
    QCOMPARE(shown(u"192.."_s), u"192.."_s);
    QCOMPARE(shown(u"192"_s), u"19"_s);
}

const TestSubject registered = subjectWithWidgets<Ipv4ValidatorTest>();
#include "Ipv4ValidatorTest.moc"
