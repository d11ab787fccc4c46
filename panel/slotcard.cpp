#include "slotcard.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QCheckBox>
#include <QComboBox>
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
const int speedsOffered = 4;

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
    , m_full(makeSwitch(tr("Full"), tr("The stick takes no more bytes"), QStringLiteral("Full"),
                        QStringLiteral("full")))
    , m_writeProtected(makeSwitch(tr("Write-protected"), tr("Nothing on the stick can be changed"),
                                  QStringLiteral("WriteProtected"),
                                  QStringLiteral("write-protect")))
    , m_speed(new QComboBox(this))
{
    setObjectName(slot);
    setAcceptDrops(true);
    m_plug->setObjectName(slot + QLatin1String("Plug"));
    m_plug->setToolTip(tr("The slot's own stick, which lies in the unit's folder"));
    m_folder->setObjectName(slot + QLatin1String("Folder"));
    m_folder->setText(tr("Folder…"));
    m_folder->setToolTip(
        tr("Plugs a folder of this computer as a stick; it can be dropped here, too"));
    m_files->setObjectName(slot + QLatin1String("Files"));
    m_files->setFont(style::figures());
    m_files->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    // Room for all that it may show, so that nothing moves.
    m_files->setFixedHeight(QFontMetrics(m_files->font()).lineSpacing() * (filesShown + 1));

    makePackageMenu();
    makeSpeeds();
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
    auto *traits = new QHBoxLayout;
    traits->setSpacing(4);
    traits->addWidget(m_writeProtected);
    traits->addWidget(m_speed, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(9, 4, 9, 9);
    layout->setSpacing(4);
    layout->addWidget(m_state);
    layout->addWidget(m_files);
    layout->addLayout(buttons);
    layout->addLayout(traits);

    connect(m_plug, &QToolButton::clicked, this, &SlotCard::plugOrPull);
    connect(m_folder, &QToolButton::clicked, this, &SlotCard::chooseFolder);
}

/// One that shows what is, which it sets by a command of the console.
QCheckBox *SlotCard::makeSwitch(const QString &text, const QString &tip, const QString &name,
                                const QString &verb)
{
    auto *box = new QCheckBox(text, this);
    box->setObjectName(m_slot + name);
    box->setToolTip(tip);
    connect(box, &QCheckBox::clicked, this, [this, box, verb](bool on) {
        // That is not so yet.
        box->setChecked(!on);
        m_client.command({verb, m_slot, on ? QStringLiteral("on") : QStringLiteral("off")});
    });
    return box;
}

void SlotCard::makeSpeeds()
{
    m_speed->setObjectName(m_slot + QLatin1String("Speed"));
    m_speed->setToolTip(tr(
        "How fast the stick reads and writes, in the unit's time: as fast as the host, or slow"));
    m_speed->setFocusPolicy(Qt::StrongFocus);
    // As wide as the card leaves room for, whatever is chosen, so that nothing moves.
    m_speed->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_speed->setMinimumContentsLength(7);
    const QVector<QPair<QString, int>> speeds = {{tr("Not slow"), 0},
                                                 {tr("10 MB/s"), 10000000},
                                                 {tr("1 MB/s"), 1000000},
                                                 {tr("100 kB/s"), 100000}};
    for (const auto &speed : speeds) {
        m_speed->addItem(speed.first, speed.second);
    }
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        const QString bytes = m_speed->itemData(index).toString();
        showSpeed(m_bytesPerSecond);
        m_client.command({QStringLiteral("slow"), m_slot, bytes});
    });
}

/// One that is none of the choices becomes one for as long as it lasts.
void SlotCard::showSpeed(int bytesPerSecond)
{
    m_bytesPerSecond = bytesPerSecond;
    if (m_speed->findData(bytesPerSecond) < 0) {
        const QString size =
            QLocale().formattedDataSize(bytesPerSecond, 1, QLocale::DataSizeSIFormat);
        m_speed->addItem(tr("%1/s").arg(size), bytesPerSecond);
    }
    m_speed->setCurrentIndex(m_speed->findData(bytesPerSecond));
    for (int i = m_speed->count() - 1; i >= speedsOffered; --i) {
        if (i != m_speed->currentIndex()) {
            m_speed->removeItem(i);
        }
    }
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
    m_writeProtected->setChecked(slot.value(QLatin1String("writeProtected")).toBool());
    showSpeed(slot.value(QLatin1String("bytesPerSecond")).toInt());
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
