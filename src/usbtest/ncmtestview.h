#pragma once

#include <QObject>
#include <QScopedPointer>

class PagePlaceholder;

/// Holds the place of the NCM test page.
class NCMTestView : public QObject
{
    Q_OBJECT

public:
    explicit NCMTestView(QWidget *parent);
    ~NCMTestView() override;

private:
    QScopedPointer<PagePlaceholder> m_page;
};
