#pragma once

#include <QObject>
#include <QScopedPointer>

class PagePlaceholder;

/// Holds the place of the USB eye-diagram page.
class USBEyeTestView : public QObject
{
    Q_OBJECT

public:
    explicit USBEyeTestView(QWidget *parent);
    ~USBEyeTestView() override;

private:
    QScopedPointer<PagePlaceholder> m_page;
};
