#pragma once

#include <QWidget>

namespace simulator {

struct CameraPerson;
class SimulatedCamera;

/// What the camera sees: the people, a frame around each face, and who it is taken for. The frame
/// of the main face is thick and green.
class CameraView : public QWidget
{
    Q_OBJECT

public:
    /// @p camera is not owned and outlives the view.
    explicit CameraView(SimulatedCamera *camera, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void drawRoom(QPainter &painter) const;
    void drawPerson(QPainter &painter, const CameraPerson &person) const;
    void drawFrame(QPainter &painter, const CameraPerson &person) const;
    void drawNote(QPainter &painter, const QString &text) const;
    QString nameOf(const CameraPerson &person) const;

    SimulatedCamera *m_camera;
};

} // namespace simulator
