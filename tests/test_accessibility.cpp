#include "controls/screen_reader.h"
#include "controls/text_table.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/invoice_form.h"
#include "office/frm_appalti.h"
#include "office/frm_voci.h"
#include "overview/frm_principale.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

bool isControl(const QWidget &widget)
{
    return (widget.inherits("QLineEdit") || widget.inherits("QAbstractButton") ||
            widget.inherits("QPlainTextEdit") || widget.inherits("QComboBox") ||
            widget.inherits("QAbstractItemView")) &&
           !widget.inherits("QHeaderView") && !widget.inherits("QComboBoxListView") &&
           !widget.parentWidget()->inherits("QAbstractItemView");
}

QString captionOf(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return button->text();
    const auto *label = qobject_cast<const QLabel *>(&widget);
    return label && label->buddy() ? label->text() : QString();
}

} // namespace

/** What every form must have for those who do not see it, use no mouse, or need large or bright
 *  text. */
class TestAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { GiveWindowsTheirRole(); }

    void cleanup()
    {
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
    }

    void controlsAreNamed()
    {
        for (const auto &form : makeForms()) {
            const auto role = QAccessible::queryAccessibleInterface(form.get())->role();
            QVERIFY(role == QAccessible::Window || role == QAccessible::Dialog);
            QStringList names;
            for (QWidget *widget : form->findChildren<QWidget *>()) {
                const bool isFrame = widget->inherits("QGroupBox");
                if (widget->objectName().startsWith("qt_"_L1) || (!isFrame && !isControl(*widget)))
                    continue;
                QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget);
                const QString name = spoken->text(QAccessible::Name);
                QVERIFY2(!name.isEmpty(), widget->metaObject()->className());
                QVERIFY2(isFrame || !widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
                // Two boxes that are read aloud alike can't be told from each other.
                if (widget->inherits("QLineEdit") && widget->objectName() != "edtTxt"_L1) {
                    QVERIFY2(!names.contains(name), qPrintable(name));
                    names += name;
                }
            }
        }
    }

    void mnemonicsDoNotClash()
    {
        for (const auto &form : makeForms()) {
            QHash<QString, QString> taken;
            for (const QWidget *widget : form->findChildren<QWidget *>()) {
                const QString caption = captionOf(*widget);
                const QString key = QKeySequence::mnemonic(caption).toString();
                if (key.isEmpty())
                    continue;
                QVERIFY2(!taken.contains(key), qPrintable(caption + u" / "_s + taken.value(key)));
                taken.insert(key, caption);
            }
            QVERIFY2(taken.size() >= 4, qPrintable(form->objectName()));
        }
    }

    void largeTextFitsTheScreen()
    {
        const QSize screen = QSize(1366, 768) - QSize(0, 36); // the title bar
        const auto leastSizes = [this](double scale, bool scrolling) {
            QFont font = m_font;
            font.setPointSizeF(m_font.pointSizeF() * scale);
            QApplication::setFont(font);
            QList<QSize> sizes;
            for (const auto &form : makeForms()) {
                const auto *area = form->findChild<QScrollArea *>();
                sizes += (area && !scrolling ? area->widget() : form.get())->minimumSizeHint();
            }
            return sizes;
        };
        const auto fits = [screen](QSize size) { return size.boundedTo(screen) == size; };
        const QList<QSize> plain = leastSizes(1, false);
        const QList<QSize> large = leastSizes(1.5, false);
        const QList<QSize> huge = leastSizes(2, true);
        for (int form = 0; form < plain.size(); ++form) {
            QVERIFY2(fits(large[form]) && fits(huge[form]), qPrintable(QString::number(form)));
            // A text that did not scale would need no more room.
            QVERIFY(plain[form].height() < large[form].height());
        }
    }

    void darkThemeIsReadable()
    {
        constexpr float apart = 0.5F;            // of the way from black to white
        const auto early = makeForms();          // go over to the theme while they are open
        QPalette dark(QColor(0x2b, 0x2b, 0x2b)); // from which the toolkit takes the other colours
        dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        const auto late = makeForms();
        for (const QWidget *widget : QApplication::allWidgets()) {
            if (!widget->isEnabled())
                continue;
            const QPalette colors = widget->palette();
            const bool onBase =
                !widget->isWindow() && isControl(*widget) && !widget->inherits("QAbstractButton");
            const QColor text = colors.color(onBase ? QPalette::Text : QPalette::WindowText);
            const QColor ground = colors.color(onBase ? QPalette::Base : QPalette::Window);
            QVERIFY2(text.lightnessF() - ground.lightnessF() > apart,
                     qPrintable(widget->objectName()));
        }
    }

private:
    /** All forms of the program. */
    std::vector<std::unique_ptr<QWidget>> makeForms()
    {
        std::vector<std::unique_ptr<QWidget>> forms;
        forms.push_back(std::make_unique<FrmPrincipale>(m_values));
        forms.push_back(std::make_unique<FrmNuovaFattura>());
        for (const CreditorKind kind : {CreditorKind::Professional, CreditorKind::Company})
            forms.push_back(std::make_unique<InvoiceForm>(kind, m_values, m_overview));
        forms.push_back(std::make_unique<FrmAppalti>());
        for (const QString &code : {u""_s, u"00112"_s})
            forms.push_back(std::make_unique<FrmVoci>(QString(), code, nullptr));
        return forms;
    }

    ProgramValues m_values;
    TextTable m_overview{5};
    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
};

QTEST_MAIN(TestAccessibility)
#include "test_accessibility.moc"
