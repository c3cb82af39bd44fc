#include "controls/notice_strip.h"

#include <QAccessible>

#include <algorithm>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int noticeLines = 3;

} // namespace

NoticeStrip::NoticeStrip(QWidget *form, Worth worth, Source source)
    : QLabel(form)
    , m_form(form)
    , m_worth(worth)
    , m_source(std::move(source))
{
    setObjectName(u"Avvisi"_s);
    setFrameStyle(StyledPanel | Sunken);
    setMargin(3);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAlignment(Qt::AlignTop);
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout(this, &NoticeStrip::refresh);
}

QSize NoticeStrip::sizeHint() const
{
    const int lines = m_worth == Worth::Shown ? noticeLines + 1 : noticeLines;
    return {0, lines * fontMetrics().lineSpacing() + 2 * (frameWidth() + margin())};
}

void NoticeStrip::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    refreshSoon();
}

void NoticeStrip::refresh()
{
    Notices notices;
    try {
        notices = m_source();
    } catch (const std::exception &) {
        notices = {}; // a notice is never worth an error
    }
    const QWidget *focus = m_form->focusWidget();
    const auto rank = [focus](const Notice &notice) {
        return std::pair(notice.weight, focus && notice.field == focus->objectName());
    };
    std::ranges::stable_sort(notices.list, std::greater(), rank);
    showLines(notices.worth, notices.list);
    markFields(notices.list);
}

void NoticeStrip::showLines(const QString &worth, const QList<Notice> &notices)
{
    static const QStringList weights{u"Nota: "_s, u"Avviso: "_s, u"ATTENZIONE: "_s};
    QStringList spoken;
    QStringList lines;
    const auto show = [&](const QString &text, bool isBold) {
        const int room = contentsRect().width() - 2 * margin();
        QFont font = this->font();
        font.setBold(isBold);
        const QString fitting = QFontMetrics(font).elidedText(text, Qt::ElideRight, room);
        lines += (isBold ? u"<b>%1</b>"_s : u"%1"_s).arg(fitting.toHtmlEscaped());
    };
    if (m_worth == Worth::Shown)
        show(worth, false);
    for (const Notice &notice : notices) {
        spoken += weights[static_cast<int>(notice.weight)] + notice.text;
        if (spoken.size() > noticeLines)
            continue;
        const qsizetype more = notices.size() - noticeLines;
        const bool isLast = spoken.size() == noticeLines && more > 0;
        show((isLast ? u"(e altri %1) "_s.arg(more) : QString()) + spoken.last(),
             notice.weight == NoticeWeight::Danger);
    }
    setText(u"<p style='white-space:pre'>"_s + lines.join(u"<br>"_s) + u"</p>"_s);
    // Names and descriptions in a notice may look like markup.
    setToolTip(spoken.isEmpty() ? QString()
                                : u"<p style='white-space:pre'>"_s +
                                      spoken.join(u'\n').toHtmlEscaped() + u"</p>"_s);
    const QStringList before = accessibleName().split(u'\n');
    setAccessibleName(spoken.join(u'\n'));
    if (std::ranges::all_of(spoken, [&](const QString &line) { return before.contains(line); }))
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeStrip::markFields(const QList<Notice> &notices)
{
    QMap<QString, QString> spoken;
    for (const Notice &notice : notices) {
        if (notice.field.isEmpty())
            continue;
        spoken[notice.field] += notice.text + u". "_s;
        auto *field = m_form->findChild<QWidget *>(notice.field);
        if (!field || m_bars.contains(notice.field))
            continue;
        auto *bar = new QWidget(field);
        bar->setAttribute(Qt::WA_TransparentForMouseEvents);
        bar->setBackgroundRole(QPalette::Text);
        bar->setAutoFillBackground(true);
        m_bars[notice.field] = bar;
    }
    for (auto bar = m_bars.cbegin(); bar != m_bars.cend(); ++bar) {
        QWidget *field = bar.value()->parentWidget();
        constexpr int barWidth = 3; // what a line edit leaves free beside its text
        bar.value()->setGeometry(0, 0, barWidth, field->height());
        bar.value()->setVisible(spoken.contains(bar.key()));
        const QString description = spoken.value(bar.key()) + field->toolTip();
        if (field->accessibleDescription() != description) // each time it is told
            field->setAccessibleDescription(description);
    }
}

} // namespace saldoro
