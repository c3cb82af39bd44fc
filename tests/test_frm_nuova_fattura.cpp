#include "common/ending.h"
#include "invoice/frm_nuova_fattura.h"

#include <QApplication>
#include <QScreen>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestFrmNuovaFattura : public QObject
{
    Q_OBJECT

private slots:
    void init()
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

    void cleanup()
    {
        SetEnding(false);
        m_dialog.reset();
    }

    void opensAsItShould()
    {
        QCOMPARE(m_dialog->windowTitle(), u"Tipo Fattura"_s);
        QVERIFY(m_dialog->windowFlags() & Qt::WindowStaysOnTopHint);
        QVERIFY(!(m_dialog->windowFlags() & Qt::WindowCloseButtonHint));
        const QRect frame = m_dialog->frameGeometry();
        QVERIFY(frame != m_dialog->geometry());
        const QPoint off = frame.center() - m_dialog->screen()->geometry().center();
        QVERIFY2(off.manhattanLength() <= 2, "centred, frame and all");
        QCOMPARE(m_dialog->minimumSize(), m_dialog->maximumSize());
    }

    void answers()
    {
        const QString company = u"company shown,finished closed"_s;
        const QString professional = u"professional shown,finished closed"_s;
        const QString none = u"finished closed"_s;
        constexpr int alt = Qt::AltModifier;
        const QList<std::pair<QList<int>, QString>> cases = {
            {{Qt::Key_Return}, company},
            {{Qt::Key_Enter}, company},
            {{Qt::Key_Down, Qt::Key_Return}, professional},
            {{alt | Qt::Key_P, alt | Qt::Key_C}, professional},
            {{Qt::Key_Tab, Qt::Key_Space}, company},
            {{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, none},
            {{alt | Qt::Key_A}, none}};
        for (const auto &[keys, told] : cases) {
            cleanup();
            init();
            for (const int key : keys) {
                const auto combination = QKeyCombination::fromCombined(key);
                QTest::keyClick(m_dialog->focusWidget(), combination.key(),
                                combination.keyboardModifiers());
            }
            QTRY_COMPARE(m_told.join(u','), told);
            QVERIFY(!m_dialog->isVisible());
        }
    }

    void hasNoOtherWayOut()
    {
        QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Escape);
        QVERIFY(!m_dialog->close());
        m_dialog->showMinimized();
        QVERIFY(m_dialog->isVisible() && !m_dialog->isMinimized());
        QCOMPARE(m_told, QStringList());
        SetEnding(true);
        QVERIFY(m_dialog->close());
        QCOMPARE(m_told, QStringList());
    }

private:
    std::unique_ptr<FrmNuovaFattura> m_dialog;
    /** What the dialog told, with its visibility at that moment. */
    QStringList m_told;
};

QTEST_MAIN(TestFrmNuovaFattura)
#include "test_frm_nuova_fattura.moc"
