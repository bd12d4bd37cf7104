#include "simulator/app/ElidedLabel.h"

namespace simulator {

namespace {

const int LongestText = 2000;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setWholeText(const QString &text)
{
    m_text = text.left(LongestText).simplified();
    // Escaped: a tool tip would take a text that looks like it for HTML.
    setToolTip(QStringLiteral("<span>%1</span>").arg(m_text.toHtmlEscaped()));
    elide();
}

QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

QSize ElidedLabel::sizeHint() const { return {100, fontMetrics().height()}; }

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide() { setText(fontMetrics().elidedText(m_text, Qt::ElideRight, width())); }

} // namespace simulator
