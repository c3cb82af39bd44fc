#include "common/ending.h"
#include "invoice/frm_nuova_fattura.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestFrmNuovaFattura : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensAsItShould();
    void answers_data();
    void answers();
    void hasNoOtherWayOut();
    void closesWhileEnding();

private:
    QAbstractButton *button(const char *name)
    {
        return m_dialog->findChild<QAbstractButton *>(QLatin1String(name));
    }

    std::unique_ptr<FrmNuovaFattura> m_dialog;
    /** What the dialog told, with its visibility at that moment. */
    QStringList m_told;
};

void TestFrmNuovaFattura::init()
{
    m_told.clear();
    m_dialog = std::make_unique<FrmNuovaFattura>();
    const auto tell = [this](const QString &what) {
        m_told += what + (m_dialog->isVisible() ? u" shown"_s : u" closed"_s);
    };
    connect(m_dialog.get(), &FrmNuovaFattura::continued, this, [tell](CreditorKind kind) {
        tell(kind == CreditorKind::Company ? u"company"_s : u"professional"_s);
    });
    connect(m_dialog.get(), &FrmNuovaFattura::finished, this, [tell] { tell(u"finished"_s); });
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void TestFrmNuovaFattura::cleanup()
{
    SetEnding(false);
    m_dialog.reset();
}

void TestFrmNuovaFattura::opensAsItShould()
{
    QCOMPARE(m_dialog->windowTitle(), u"Tipo Fattura"_s);
    QVERIFY(button("Option3")->isChecked());
    QVERIFY(!button("Option4")->isChecked());
    const Qt::WindowFlags flags = m_dialog->windowFlags();
    QVERIFY(flags & Qt::WindowStaysOnTopHint);
    QVERIFY(!(flags & Qt::WindowCloseButtonHint));
    const QPoint off = m_dialog->frameGeometry().center() - m_dialog->screen()->geometry().center();
    QVERIFY2(off.manhattanLength() <= 2, "centred, frame and all");
    QVERIFY(m_dialog->frameGeometry() != m_dialog->geometry());
    QCOMPARE(m_dialog->minimumSize(), m_dialog->maximumSize());
}

void TestFrmNuovaFattura::answers_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QString>("told");
    const QString company = u"company shown,finished closed"_s;
    const QString professional = u"professional shown,finished closed"_s;
    constexpr int alt = Qt::AltModifier;

    QTest::newRow("Enter at once") << QList<int>{Qt::Key_Return} << company;
    QTest::newRow("keypad Enter") << QList<int>{Qt::Key_Enter} << company;
    QTest::newRow("arrow, Enter") << QList<int>{Qt::Key_Down, Qt::Key_Return} << professional;
    QTest::newRow("there and back")
        << QList<int>{Qt::Key_Down, Qt::Key_Up, Qt::Key_Return} << company;
    QTest::newRow("mnemonic of an option")
        << QList<int>{alt | Qt::Key_P, Qt::Key_Return} << professional;
    QTest::newRow("mnemonics alone")
        << QList<int>{alt | Qt::Key_P, alt | Qt::Key_C} << professional;
    QTest::newRow("Tab to Continua") << QList<int>{Qt::Key_Tab, Qt::Key_Space} << company;
    QTest::newRow("Enter on Annulla")
        << QList<int>{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return} << u"finished closed"_s;
    QTest::newRow("mnemonic of Annulla") << QList<int>{alt | Qt::Key_A} << u"finished closed"_s;
}

void TestFrmNuovaFattura::answers()
{
    QFETCH(QList<int>, keys);
    QFETCH(QString, told);
    for (const int key : std::as_const(keys)) {
        const auto combination = QKeyCombination::fromCombined(key);
        QTest::keyClick(m_dialog->focusWidget(), combination.key(),
                        combination.keyboardModifiers());
    }
    QTRY_COMPARE(m_told.join(u','), told);
    QVERIFY(!m_dialog->isVisible());
}

void TestFrmNuovaFattura::hasNoOtherWayOut()
{
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Escape);
    QVERIFY(!m_dialog->close());
    m_dialog->showMinimized();
    QVERIFY(m_dialog->isVisible() && !m_dialog->isMinimized());
    QCOMPARE(m_told, QStringList());
    QTest::mouseClick(button("Command2"), Qt::LeftButton);
    QCOMPARE(m_told, QStringList(u"finished closed"_s));
}

void TestFrmNuovaFattura::closesWhileEnding()
{
    SetEnding(true);
    QVERIFY(m_dialog->close());
    QCOMPARE(m_told, QStringList());
}

QTEST_MAIN(TestFrmNuovaFattura)
#include "test_frm_nuova_fattura.moc"
