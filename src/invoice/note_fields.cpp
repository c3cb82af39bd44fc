#include "invoice/note_fields.h"

#include "controls/date_box.h"
#include "controls/screen_reader.h"
#include "invoice/entry_field.h"
#include "invoice/field_navigation.h"

#include <QGridLayout>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>

namespace saldoro {

using namespace Qt::StringLiterals;

/**
 * A box for a note of several lines; Enter breaks the line, Tab moves on. A note that was not
 * touched reads back exactly as it was shown, and a changed one keeps the kind of line breaks that
 * it came with, whatever program wrote it.
 */
class NoteBox : public QPlainTextEdit
{
public:
    explicit NoteBox(QWidget *parent)
        : QPlainTextEdit(parent)
    {
        setTabChangesFocus(true);
    }

    void showNote(const QString &note)
    {
        m_shown = note;
        setPlainText(note);
        document()->setModified(false);
    }

    QString note() const
    {
        if (!document()->isModified())
            return m_shown;
        QString text = toPlainText();
        if (m_shown.contains(u"\r\n"_s))
            text.replace(QLatin1Char('\n'), u"\r\n"_s);
        return text;
    }

    /** A few lines; a form may give it more. */
    QSize sizeHint() const override { return minimumSizeHint(); }

    QSize minimumSizeHint() const override
    {
        constexpr int lines = 4;
        constexpr int characters = 30;
        return {characters * fontMetrics().averageCharWidth(), lines * fontMetrics().lineSpacing()};
    }

protected:
    /** A clipboard that holds nothing at all would crash the toolkit. */
    void insertFromMimeData(const QMimeData *source) override
    {
        if (source && !source->text().isEmpty())
            QPlainTextEdit::insertFromMimeData(source);
    }

private:
    QString m_shown;
};

NoteFields::NoteFields(FieldNavigation &navigation, QWidget *parent)
    : QWidget(parent)
    , m_mandate(new EntryField(this))
    , m_mandateDate(new DateBox(this))
    , m_note(new NoteBox(this))
{
    Describe(*m_mandateDate, u"MandatoDell"_s, u"Data del mandato"_s,
             u"Data del mandato di pagamento, giorno/mese/anno"_s);
    Describe(*m_note, u"Memo"_s, u"Note"_s, u"Note libere; Invio va a capo, Tab passa oltre"_s);
    navigation.addLine(*m_mandateDate);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(navigation.addLine(*m_mandate, u"Mandato"_s, u"Mandat&o nr."_s,
                                       u"Numero del mandato di pagamento"_s),
                    0, 0);
    grid->addWidget(m_mandate, 0, 1);
    grid->addWidget(m_mandateDate, 0, 2);
    grid->addWidget(LabelFor(*m_note, u"&Note"_s), 1, 0, Qt::AlignTop);
    grid->addWidget(m_note, 1, 1, 1, 2);
    grid->setColumnStretch(1, 1);
}

void NoteFields::showRecord(const PaymentRecord &record)
{
    m_mandate->showText(record.mandato);
    m_mandateDate->setDateText(record.mandatoDell);
    m_note->showNote(record.memo);
}

void NoteFields::readInto(PaymentRecord &record) const
{
    record.mandato = m_mandate->text();
    record.mandatoDell = m_mandateDate->text();
    record.memo = m_note->note();
}

} // namespace saldoro
