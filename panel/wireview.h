#pragma once

#include "journalline.h"

#include <QWidget>

class QCheckBox;
class QPlainTextEdit;

namespace panel
{

class UnitClient;

/// The bytes on the receiver's line, as long as somebody wants to see them: an upgrade has hundreds
/// of thousands.
class WireView : public QWidget
{
    Q_OBJECT

public:
    explicit WireView(UnitClient &client, QWidget *parent = nullptr);

private:
    void showState();
    void takeLines(const JournalLines &lines);

    UnitClient &m_client;
    QCheckBox *m_show;
    QPlainTextEdit *m_bytes;
};

} // namespace panel
