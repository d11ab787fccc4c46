#pragma once

#include <QGroupBox>

class QCheckBox;
class QComboBox;
class QJsonObject;
class QLabel;
class QToolButton;

namespace panel
{

class UnitClient;

/// A slot for a stick: plugs and pulls one, also a folder that is dropped on it, tells what it
/// holds, and lets it be full, write-protected or slow.
class SlotCard : public QGroupBox
{
    Q_OBJECT

public:
    SlotCard(UnitClient &client, const QString &slot, QWidget *parent = nullptr);

    /// The slot as the unit's state tells it.
    void show(const QJsonObject &slot);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QCheckBox *makeSwitch(const QString &text, const QString &tip, const QString &name,
                          const QString &verb);
    void makeSpeeds();
    void showSpeed(int bytesPerSecond);
    void makePackageMenu();
    void plugOrPull();
    void chooseFolder();
    void plug(const QString &folder);

    UnitClient &m_client;
    const QString m_slot;
    bool m_isPlugged = false;
    int m_bytesPerSecond = 0;
    QLabel *m_state;
    QLabel *m_files;
    QToolButton *m_plug;
    QToolButton *m_folder;
    QToolButton *m_package;
    QCheckBox *m_full;
    QCheckBox *m_writeProtected;
    QComboBox *m_speed;
};

} // namespace panel
