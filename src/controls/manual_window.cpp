#include "controls/manual_window.h"

#include "controls/window_placement.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The name by which a link leads to a heading. */
QString anchorOf(const QString &heading)
{
    static const QRegularExpression dropped(u"[^\\w -]"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(dropped).replace(u' ', u'-');
}

} // namespace

ManualWindow::ManualWindow()
{
    setObjectName(u"ManualWindow"_s);
    setWindowTitle(u"Manuale di Saldoro"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setOpenLinks(false); // the toolkit gives headings no anchors
    connect(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl &link) { goTo(link.fragment()); });
    document()->setDocumentMargin(fontMetrics().height());
    constexpr QSize firstSize(15900, 9300); // twips: as wide as its pictures
    SizeWindow(*this, TwipsToPixels(firstSize, *this));
    CentraForm(*this);
}

void ManualWindow::offerIn(QWidget &form, QStringView heading)
{
    auto *help = new QShortcut(QKeySequence::HelpContents, &form);
    connect(help, &QShortcut::activated, this, [this, heading] { showChapter(heading); });
}

void ManualWindow::showChapter(QStringView heading)
{
    if (source().isEmpty())
        setSource(QUrl(u"qrc:/manuale/manuale.md"_s), QTextDocument::MarkdownResource);
    BringToFront(*this);
    goTo(anchorOf(heading.toString()));
}

void ManualWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QTextBrowser::keyPressEvent(event);
}

void ManualWindow::goTo(const QString &anchor)
{
    QTextBlock block = document()->begin();
    while (block.isValid() &&
           (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor))
        block = block.next();
    if (!block.isValid())
        return;
    setTextCursor(QTextCursor(block));
    const QRectF place = document()->documentLayout()->blockBoundingRect(block);
    verticalScrollBar()->setValue(static_cast<int>(place.top()));
}

} // namespace saldoro
