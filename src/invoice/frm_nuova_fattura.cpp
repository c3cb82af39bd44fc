#include "invoice/frm_nuova_fattura.h"

#include "common/ending.h"
#include "controls/enter_and_held_keys.h"
#include "controls/prompt_button.h"
#include "controls/screen_reader.h"
#include "controls/window_placement.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QVBoxLayout>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QRadioButton *makeOption(const QString &name, const QString &text, const QString &hint)
{
    auto *option = new QRadioButton(text);
    Describe(*option, name, text, hint);
    // Its mnemonic chooses it only after a moment, but an Enter may follow at once.
    QObject::connect(option, &QRadioButton::pressed, option,
                     [option] { option->setChecked(true); });
    return option;
}

} // namespace

FrmNuovaFattura::FrmNuovaFattura(QWidget *owner)
    : QDialog(owner)
{
    setObjectName(u"FrmNuovaFattura"_s);
    setWindowTitle(u"Tipo Fattura"_s);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeOptions());
    layout->addLayout(makeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    SetTopMost(*this);
    adjustSize();
    CentraForm(*this);
}

QWidget *FrmNuovaFattura::makeOptions()
{
    auto *frame = new QGroupBox(u"Fattura da:"_s, this);
    frame->setObjectName(u"Frame2"_s);
    constexpr int leastCharacters = 40; // leaves the window's title readable
    frame->setMinimumWidth(leastCharacters * frame->fontMetrics().averageCharWidth());
    m_company = makeOption(u"Option3"_s, u"&Impresa"_s, u"Il pagamento è per un'impresa"_s);
    m_company->setChecked(true);
    auto *options = new QVBoxLayout(frame);
    options->addWidget(m_company);
    options->addWidget(
        makeOption(u"Option4"_s, u"&Professionista"_s, u"Il pagamento è per un professionista"_s));
    return frame;
}

QLayout *FrmNuovaFattura::makeButtons()
{
    auto *proceedButton =
        new PromptButton(u"Command1"_s, u"&Continua"_s, u"Apre la fattura da compilare"_s);
    auto *cancelButton =
        new PromptButton(u"Command2"_s, u"&Annulla"_s, u"Torna alla schermata principale"_s);
    proceedButton->setDefault(true);
    connect(proceedButton, &QPushButton::clicked, this, [this] {
        setEnabled(false);
        emit continued(m_company->isChecked() ? CreditorKind::Company : CreditorKind::Professional);
        accept();
    });
    connect(cancelButton, &QPushButton::clicked, this, [this] { done(Rejected); });
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(proceedButton);
    buttons->addWidget(cancelButton);
    return buttons;
}

// The key that opened the form may still be held down.
void FrmNuovaFattura::keyPressEvent(QKeyEvent *event)
{
    if (!IsEnter(*event) || !IsKeyHeld())
        QDialog::keyPressEvent(event);
}

void FrmNuovaFattura::closeEvent(QCloseEvent *event)
{
    event->setAccepted(IsEnding());
}

// Some window managers offer to minimise it all the same, while the main form is out of use.
void FrmNuovaFattura::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isMinimized())
        showNormal();
}

} // namespace saldoro
