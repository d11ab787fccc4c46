#pragma once

#include "kvglobal/kvglobal.h"

#include <QLabel>

/// A label for a text of any length: with the adaptive font size on, a text that is wider than the
/// label is drawn smaller. Texts are plain: what is given is what is shown.
class KV_API KvDisLabel : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(KvDisLabel)
    Q_PROPERTY(bool adaptiveFontSize MEMBER m_adaptiveFontSize WRITE setAdaptiveFontSize)

public:
    explicit KvDisLabel(QWidget *parent = nullptr);

    /// Off at first. The text is never drawn larger than font() and not smaller than 12 pixels;
    /// what is too wide even then ends in an ellipsis.
    void setAdaptiveFontSize(const bool &adaptive);

    /// The font that the text is drawn with: font() itself, or a smaller one that fits.
    QFont shownFont() const;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect textArea() const;

    bool m_adaptiveFontSize = false;
};
