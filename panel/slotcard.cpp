#include "slotcard.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>

namespace panel
{

namespace
{

const int filesShown = 2;

/// The folder that is dragged; empty where it is anything else.
QString folderOf(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    const QString path = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    return QFileInfo(path).isDir() ? path : QString();
}

QStringList fileLines(const QJsonArray &files)
{
    QStringList lines;
    for (const QJsonValue &file : files) {
        lines.append(QStringLiteral("%1  %2").arg(
            file[QLatin1String("name")].toString(),
            QLocale().formattedDataSize(qint64(file[QLatin1String("size")].toDouble()))));
    }
    return lines;
}

} // namespace

SlotCard::SlotCard(UnitClient &client, const QString &slot, QWidget *parent)
    : QGroupBox(slot.toUpper(), parent)
    , m_client(client)
    , m_slot(slot)
    , m_state(new QLabel(this))
    , m_files(new QLabel(this))
    , m_plug(new QToolButton(this))
    , m_folder(new QToolButton(this))
    , m_package(new QToolButton(this))
    , m_full(new QCheckBox(tr("Full"), this))
{
    setObjectName(slot);
    setAcceptDrops(true);
    m_plug->setObjectName(slot + QLatin1String("Plug"));
    m_plug->setToolTip(tr("The slot's own stick, which lies in the unit's folder"));
    m_folder->setObjectName(slot + QLatin1String("Folder"));
    m_folder->setText(tr("Folder…"));
    m_folder->setToolTip(
        tr("Plugs a folder of this computer as a stick; it can be dropped here, too"));
    m_full->setObjectName(slot + QLatin1String("Full"));
    m_full->setToolTip(tr("The stick takes no more bytes"));
    m_files->setObjectName(slot + QLatin1String("Files"));
    m_files->setFont(style::figures());
    m_files->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    // Room for all that it may show, so that nothing moves.
    m_files->setFixedHeight(QFontMetrics(m_files->font()).lineSpacing() * (filesShown + 1));

    makePackageMenu();
    for (QToolButton *button : {m_plug, m_folder, m_package}) {
        button->setFocusPolicy(Qt::StrongFocus);
    }
    // As wide as the longer of its texts, so that nothing moves.
    m_plug->setText(tr("Plug"));
    m_plug->setMinimumWidth(m_plug->sizeHint().width());

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(m_plug);
    buttons->addWidget(m_folder);
    buttons->addWidget(m_package);
    buttons->addStretch();
    buttons->addWidget(m_full);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(9, 4, 9, 9);
    layout->setSpacing(4);
    layout->addWidget(m_state);
    layout->addWidget(m_files);
    layout->addLayout(buttons);

    connect(m_plug, &QToolButton::clicked, this, &SlotCard::plugOrPull);
    connect(m_folder, &QToolButton::clicked, this, &SlotCard::chooseFolder);
    connect(m_full, &QCheckBox::clicked, this, [this](bool full) {
        // It shows what is, and that is not so yet.
        m_full->setChecked(!full);
        QStringList words = {QStringLiteral("fault"), QStringLiteral("storage")};
        words += full ? QStringList{QStringLiteral("full"), m_slot}
                      : QStringList{QStringLiteral("none")};
        m_client.command(words);
    });
}

void SlotCard::makePackageMenu()
{
    const QVector<QPair<QString, QString>> kinds = {
        {QStringLiteral("gps"), tr("GPS boot loader and firmware")},
        {QStringLiteral("gps-bad"), tr("The same, with a broken firmware")},
        {QStringLiteral("update"), tr("User update")},
        {QStringLiteral("update-bad"), tr("Broken user update")}};
    auto *menu = new QMenu(m_package);
    menu->setObjectName(m_slot + QLatin1String("Packages"));
    for (const auto &kind : kinds) {
        menu->addAction(kind.second, this, [this, kind] {
            m_client.command({QStringLiteral("package"), m_slot, kind.first});
        });
    }
    m_package->setObjectName(m_slot + QLatin1String("Put"));
    m_package->setText(tr("Put"));
    m_package->setPopupMode(QToolButton::InstantPopup);
    m_package->setToolTip(tr("Puts a package on the stick"));
    m_package->setMenu(menu);
}

void SlotCard::show(const QJsonObject &slot)
{
    m_isPlugged = slot.value(QLatin1String("plugged")).toBool();
    m_state->setText(
        m_isPlugged ? tr("Plugged at %1").arg(slot.value(QLatin1String("mountRoot")).toString())
                    : tr("Empty"));
    m_plug->setText(m_isPlugged ? tr("Pull") : tr("Plug"));
    m_folder->setEnabled(!m_isPlugged);
    m_full->setChecked(slot.value(QLatin1String("full")).toBool());
    const QStringList files = fileLines(slot.value(QLatin1String("files")).toArray());
    QStringList lines = files.mid(0, filesShown);
    if (files.size() > filesShown) {
        lines.append(tr("and %n more", nullptr, files.size() - filesShown));
    } else if (m_isPlugged && files.isEmpty()) {
        lines.append(tr("no files"));
    }
    m_files->setText(lines.join(QLatin1Char('\n')));
    m_files->setToolTip(files.join(QLatin1Char('\n')));
}

void SlotCard::dragEnterEvent(QDragEnterEvent *event)
{
    if (!m_isPlugged && !folderOf(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void SlotCard::dropEvent(QDropEvent *event)
{
    plug(folderOf(event->mimeData()));
    event->acceptProposedAction();
}

void SlotCard::plugOrPull()
{
    if (m_isPlugged) {
        m_client.command({QStringLiteral("pull"), m_slot});
    } else {
        m_client.command({QStringLiteral("plug"), m_slot});
    }
}

void SlotCard::chooseFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Which folder is the stick in %1?").arg(title()));
    if (!folder.isEmpty()) {
        plug(folder);
    }
}

void SlotCard::plug(const QString &folder)
{
    m_client.command({QStringLiteral("plug"), m_slot, folder});
}

} // namespace panel
