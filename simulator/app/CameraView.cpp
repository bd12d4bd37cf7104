#include "simulator/app/CameraView.h"

#include "simulator/core/SimulatedCamera.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace simulator {

namespace {

const QColor Wall(0xdd, 0xe3, 0xe8);
const QColor Floor(0xb9, 0xae, 0xa0);
const QColor Skin(0xe8, 0xc3, 0xa4);
const QColor MainFrame(0x18, 0xa0, 0x58);
const QColor OtherFrame(0x2f, 0x6d, 0xb5);

QColor colourOf(const CameraPerson &person, int saturation, int value)
{
    return QColor::fromHsv(static_cast<int>(person.track * 67 % 360), saturation, value);
}

} // namespace

CameraView::CameraView(SimulatedCamera *camera, QWidget *parent)
    : QWidget(parent)
    , m_camera(camera)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(m_camera, &SimulatedCamera::pictureChanged, this, qOverload<>(&QWidget::update));
}

QSize CameraView::sizeHint() const { return {260, 150}; }

QSize CameraView::minimumSizeHint() const { return {160, 100}; }

void CameraView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(rect());
    drawRoom(painter);
    QVector<CameraPerson> people = m_camera->people();
    if (people.isEmpty()) {
        drawNote(painter, m_camera->isOn() ? tr("Nobody in the picture") : tr("Switched off"));
        return;
    }
    // Who is nearer stands before the others.
    const auto isFarther = [](const CameraPerson &left, const CameraPerson &right) {
        return left.height < right.height;
    };
    std::stable_sort(people.begin(), people.end(), isFarther);
    for (const CameraPerson &person : qAsConst(people))
        drawPerson(painter, person);
    // The main face's frame lies over the others.
    for (const bool isMain : {false, true}) {
        for (const CameraPerson &person : qAsConst(people)) {
            if ((person.track == m_camera->mainFace()) == isMain)
                drawFrame(painter, person);
        }
    }
}

void CameraView::drawRoom(QPainter &painter) const
{
    const int horizon = height() * 3 / 4;
    painter.fillRect(rect(), Wall);
    painter.fillRect(QRect(0, horizon, width(), height() - horizon), Floor);
}

void CameraView::drawPerson(QPainter &painter, const CameraPerson &person) const
{
    const double size = person.height * height();
    const QPointF middle(person.position.x() * width(), person.position.y() * height());

    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(person, 120, 150));
    QPainterPath body;
    body.addRoundedRect(
        QRectF(middle.x() - size * 0.75, middle.y() + size * 0.5, size * 1.5, height()),
        size * 0.45, size * 0.45);
    painter.drawPath(body);

    const double across = size * 0.34;
    painter.setBrush(colourOf(person, 90, 90));
    painter.drawEllipse(middle - QPointF(0, size * 0.08), across * 1.12, size * 0.48);
    painter.setBrush(Skin);
    painter.drawEllipse(middle + QPointF(0, size * 0.04), across, size * 0.44);
    painter.setBrush(QColor(0x40, 0x3a, 0x36));
    for (const double side : {-1.0, 1.0})
        painter.drawEllipse(middle + QPointF(side * size * 0.13, -size * 0.02), size * 0.04,
                            size * 0.05);
    painter.setPen(QPen(QColor(0x8a, 0x4a, 0x40), qMax(1.0, size * 0.04)));
    painter.drawLine(middle + QPointF(-size * 0.1, size * 0.24),
                     middle + QPointF(size * 0.1, size * 0.24));
}

void CameraView::drawFrame(QPainter &painter, const CameraPerson &person) const
{
    const bool isMain = person.track == m_camera->mainFace();
    const QColor colour = isMain ? MainFrame : OtherFrame;
    const QRectF face = person.face(size());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, isMain ? 3 : 1.5));
    painter.drawRect(face);

    const QString text = QStringLiteral("#%1 %2").arg(person.track).arg(nameOf(person));
    QRectF label = painter.fontMetrics().boundingRect(text).adjusted(-4, -1, 4, 1);
    label.moveBottomLeft(face.topLeft());
    label.moveLeft(qBound(0.0, label.left(), qMax(0.0, width() - label.width())));
    label.moveTop(qMax(0.0, label.top()));
    painter.fillRect(label, colour);
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, text);
}

void CameraView::drawNote(QPainter &painter, const QString &text) const
{
    painter.setPen(QColor(0x5a, 0x5f, 0x66));
    painter.drawText(rect(), Qt::AlignCenter, text);
}

QString CameraView::nameOf(const CameraPerson &person) const
{
    const FaceRecognition::Identity identity = m_camera->identity(person.track);
    if (!identity.isKnown())
        return tr("stranger");
    const QString name = identity.user.name();
    const QString text = name.isEmpty() ? tr("id %1").arg(identity.id) : name;
    return text.size() > 20 ? text.left(19) + QStringLiteral("…") : text;
}

} // namespace simulator
