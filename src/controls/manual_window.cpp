#include "controls/manual_window.h"

#include "controls/window_placement.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>

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

/** Scrolls to the heading that a link of that name leads to. */
void goTo(QTextBrowser &browser, const QString &anchor)
{
    const QTextDocument &manual = *browser.document();
    QTextBlock block = manual.begin();
    while (block.isValid() &&
           (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor))
        block = block.next();
    if (!block.isValid())
        return;
    browser.setTextCursor(QTextCursor(block));
    const QRectF place = manual.documentLayout()->blockBoundingRect(block);
    browser.verticalScrollBar()->setValue(static_cast<int>(place.top()));
}

std::unique_ptr<QTextBrowser> makeBrowser()
{
    auto browser = std::make_unique<QTextBrowser>();
    browser->setObjectName(u"ManualWindow"_s);
    browser->setWindowTitle(u"Manuale di Saldoro"_s);
    browser->setAttribute(Qt::WA_QuitOnClose, false);
    browser->setOpenLinks(false); // the toolkit gives headings no anchors
    QObject::connect(browser.get(), &QTextBrowser::anchorClicked, browser.get(),
                     [&manual = *browser](const QUrl &link) { goTo(manual, link.fragment()); });
    QObject::connect(new QShortcut(Qt::Key_Escape, browser.get()), &QShortcut::activated,
                     browser.get(), &QWidget::close);
    browser->document()->setDocumentMargin(browser->fontMetrics().height());
    browser->setSource(QUrl(u"qrc:/manuale/manuale.md"_s), QTextDocument::MarkdownResource);
    constexpr QSize firstSize(15900, 9300); // twips: as wide as its pictures
    SizeWindow(*browser, TwipsToPixels(firstSize, *browser));
    CentraForm(*browser);
    return browser;
}

} // namespace

ManualWindow::ManualWindow() = default;

ManualWindow::~ManualWindow() = default;

void ManualWindow::offerIn(QWidget &form, QStringView heading)
{
    QObject::connect(new QShortcut(QKeySequence::HelpContents, &form), &QShortcut::activated, &form,
                     [this, &form, heading] { showChapter(form, heading); });
}

void ManualWindow::showChapter(const QWidget &form, QStringView heading)
{
    if (!m_browser) {
        m_browser = makeBrowser();
        m_browser->setWindowFlag(Qt::WindowStaysOnTopHint,
                                 form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
    BringToFront(*m_browser);
    goTo(*m_browser, anchorOf(heading.toString()));
}

} // namespace saldoro
