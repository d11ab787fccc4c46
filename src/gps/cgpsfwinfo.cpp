#include "cgpsfwinfo.h"

#include "ui_gpsfwinfoform.h"

#include "common/trace.h"

#include "service/printlogex.h"

CGpsFwInfo::CGpsFwInfo(const QRect &rect, QWidget *parent)
    : KvWidget(parent)
    , m_form(new Ui_gpsFWInfoForm)
    , m_page(nullptr)
{
    FACTORY_TRACE << "CGpsFwInfo";
    setGeometry(rect);
    m_form->setupUi(this);
    newFwInfoPage();
}

CGpsFwInfo::~CGpsFwInfo() = default;

void CGpsFwInfo::newFwInfoPage()
{
    connect(m_form->cancelButton, &KvIconButton::btnClicked, this, &CGpsFwInfo::systemNewInfoSlot);
    connect(m_form->updateButton, &KvIconButton::btnReleased, this, &CGpsFwInfo::systemNewInfoSlot,
            Qt::QueuedConnection);
}

void CGpsFwInfo::selectSubPage(bool verified)
{
    m_form->infoPage->show();
    m_form->popLoading->setVisible(!verified);
    m_form->popEnsure->setVisible(verified);
}

void CGpsFwInfo::systemNewInfoSlot(QString id)
{
    printLogEx("INFO", "CGpsComPage", "%s, %s\n", "systemNewInfoSlot", qPrintable(id));
    if (id == m_form->cancelButton->buttonID()) {
        emit showSystemInfo();
    } else if (id == m_form->updateButton->buttonID()) {
        selectSubPage(false);
        m_form->label_1->setText(tr("GPS Firmware Updating..."));
        emit sigUpdate();
    }
}
