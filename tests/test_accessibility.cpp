#include "controls/text_table.h"
#include "invoice/frm_aziende.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/frm_professionisti.h"
#include "overview/frm_principale.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

bool isControl(const QWidget &widget)
{
    return (qobject_cast<const QLineEdit *>(&widget) ||
            qobject_cast<const QAbstractButton *>(&widget) ||
            qobject_cast<const QPlainTextEdit *>(&widget) ||
            qobject_cast<const QAbstractItemView *>(&widget)) &&
           !qobject_cast<const QHeaderView *>(&widget) &&
           !qobject_cast<const QAbstractItemView *>(widget.parentWidget());
}

QString captionOf(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return button->text();
    const auto *label = qobject_cast<const QLabel *>(&widget);
    return label && label->buddy() ? label->text() : QString();
}

} // namespace

/** What every form owes to those who do not see it, use no mouse, or need large or bright text. */
class TestAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"FrmPrincipale", "FrmNuovaFattura", "FrmProfessionisti", "FrmAziende"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void cleanup()
    {
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
    }

    void controlsAreNamed()
    {
        const auto form = makeForm();
        QStringList names;
        for (QWidget *widget : form->findChildren<QWidget *>()) {
            const bool isFrame = qobject_cast<QGroupBox *>(widget) != nullptr;
            if (widget->objectName().startsWith("qt_"_L1) || (!isFrame && !isControl(*widget)))
                continue;
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget);
            const QString name = spoken->text(QAccessible::Name);
            QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(isFrame || !widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
            // Two boxes that are read aloud alike can't be told from each other.
            if (qobject_cast<QLineEdit *>(widget) && widget->objectName() != "edtTxt"_L1) {
                QVERIFY2(!names.contains(name), qPrintable(name));
                names += name;
            }
        }
        QVERIFY(!form->findChildren<QWidget *>().isEmpty());
    }

    void mnemonicsDoNotClash()
    {
        const auto form = makeForm();
        QHash<QString, QString> taken;
        for (const QWidget *widget : form->findChildren<QWidget *>()) {
            const QString caption = captionOf(*widget);
            const QString key = QKeySequence::mnemonic(caption).toString();
            if (key.isEmpty())
                continue;
            QVERIFY2(!taken.contains(key), qPrintable(caption + u" / "_s + taken.value(key)));
            taken.insert(key, caption);
        }
        QVERIFY(taken.size() >= 4);
    }

    void largeTextFitsTheScreen()
    {
        constexpr QSize screen(1366, 768);
        constexpr int titleBar = 36;
        const auto leastSize = [this](double scale, bool scrolling) {
            QFont font = m_font;
            font.setPointSizeF(m_font.pointSizeF() * scale);
            QApplication::setFont(font);
            const auto form = makeForm();
            const auto *area = form->findChild<QScrollArea *>();
            return (area && !scrolling ? area->widget() : form.get())->minimumSizeHint();
        };
        const auto fits = [screen](QSize size) {
            return size.width() <= screen.width() && size.height() <= screen.height() - titleBar;
        };
        const QSize large = leastSize(1.5, false);
        QVERIFY2(fits(large), qPrintable(u"%1 x %2"_s.arg(large.width()).arg(large.height())));
        QVERIFY(fits(leastSize(2, true)));
        // A text that did not scale would need no more room.
        QVERIFY(leastSize(1, false).height() < large.height());
    }

    void darkThemeIsReadable()
    {
        constexpr float apart = 0.5F;            // of the way from black to white
        const auto early = makeForm();           // goes over to the theme while it is open
        QPalette dark(QColor(0x2b, 0x2b, 0x2b)); // from which the toolkit takes the other colours
        dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        const auto late = makeForm();
        for (const QWidget *widget :
             early->findChildren<QWidget *>() + late->findChildren<QWidget *>()) {
            if (!widget->isEnabled())
                continue;
            const QPalette colors = widget->palette();
            const bool onBase =
                isControl(*widget) && !qobject_cast<const QAbstractButton *>(widget);
            const QColor text = colors.color(onBase ? QPalette::Text : QPalette::WindowText);
            const QColor ground = colors.color(onBase ? QPalette::Base : QPalette::Window);
            QVERIFY2(text.lightnessF() - ground.lightnessF() > apart,
                     qPrintable(widget->objectName()));
        }
    }

private:
    std::unique_ptr<QWidget> makeForm()
    {
        QFETCH_GLOBAL(const QString, name);
        if (name == "FrmPrincipale"_L1)
            return std::make_unique<FrmPrincipale>(m_values);
        if (name == "FrmNuovaFattura"_L1)
            return std::make_unique<FrmNuovaFattura>();
        if (name == "FrmProfessionisti"_L1)
            return std::make_unique<FrmProfessionisti>(m_values, m_overview);
        return std::make_unique<FrmAziende>(m_values, m_overview);
    }

    ProgramValues m_values;
    TextTable m_overview{5};
    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
};

QTEST_MAIN(TestAccessibility)
#include "test_accessibility.moc"
