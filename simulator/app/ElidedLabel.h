#pragma once

#include <QLabel>

namespace simulator {

/// One line of plain text that ends in an ellipsis when it does not fit; the tool tip shows more.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Line breaks become spaces.
    void setWholeText(const QString &text);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void elide();

    QString m_text;
};

} // namespace simulator
