#include "open_program.h"

#include <QScreen>

using namespace saldoro;

/** The chooser, opened by "Nuovo". */
class TestFrmNuovaFattura : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_program.reset();
        m_program = std::make_unique<OpenProgram>();
        m_program->play(u"click Command1"_s);
        m_dialog = m_program->chooser();
        QTRY_COMPARE(QApplication::activeWindow(),
                     m_dialog); // to the toolkit its owner is active too
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

    /** Which form opens; the main form is disabled until then. */
    void answers()
    {
        for (const auto &[steps, opened] : {std::pair{u"Return"_s, u"A 4"_s},
                                            {u"Enter"_s, u"A 4"_s},
                                            {u"Down, Return"_s, u"P 4"_s},
                                            {u"Alt+P, Alt+C"_s, u"P 4"_s},
                                            {u"click Option4, click Command1"_s, u"P 4"_s},
                                            {u"Tab, Space"_s, u"A 4"_s},
                                            {u"Tab, Tab, Return"_s, QString()},
                                            {u"Alt+A"_s, QString()}}) {
            init();
            FrmPrincipale &main = m_program->main;
            QVERIFY(!main.isEnabled() && !main.close() && main.isVisible());
            Play(m_dialog, steps);
            QCOMPARE(m_program->told(), opened);
            QVERIFY(main.isEnabled());
            QCOMPARE(main.focusWidget(), Find(main, u"Command1"_s));
            QCOMPARE(m_program->takeDocuments(), 0);
        }
    }

    void hasNoOtherWayOut()
    {
        Play(m_dialog, u"Escape"_s);
        QVERIFY(!m_dialog->close());
        m_dialog->showMinimized();
        QVERIFY(m_dialog->isVisible() && !m_dialog->isMinimized());
        QCOMPARE(m_program->told(), u"new 4"_s);
        SetEnding(true);
        QVERIFY(m_dialog->close());
    }

private:
    std::unique_ptr<OpenProgram> m_program;
    FrmNuovaFattura *m_dialog = nullptr;
};

QTEST_MAIN(TestFrmNuovaFattura)
#include "test_frm_nuova_fattura.moc"
