#pragma once

#include "form_driver.h"

#include <QTextBlock>
#include <QTextBrowser>

namespace saldoro {

using namespace Qt::StringLiterals;

/** Keys in an active form show the manual at that chapter, until Esc. It stays above other windows
 *  only where the form does: it would hide the dialogs of any other form. */
inline void CheckManual(QWidget &form, const QString &keys, const QString &chapter)
{
    QTRY_COMPARE(QApplication::activeWindow(), &form);
    Play(&form, keys);
    QTRY_VERIFY(qobject_cast<QTextBrowser *>(QApplication::activeWindow()));
    auto *manual = static_cast<QTextBrowser *>(QApplication::activeWindow());
    QCOMPARE(manual->windowFlags().testFlag(Qt::WindowStaysOnTopHint),
             form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(manual->cursorForPosition({30, 10}).block().text(), chapter);
    QTest::keyClick(manual, Qt::Key_Escape);
    QVERIFY(!manual->isVisible());
    form.activateWindow(); // off screen no window manager does
    QTRY_COMPARE(QApplication::activeWindow(), &form);
}

} // namespace saldoro
