#pragma once

#include <QList>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QPushButton;
class QSpinBox;
class QString;
class QStringList;
class QWidget;

namespace simulator {

// Small helpers of the control panel's forms. What they return belongs to the widget into which it
// is laid.

/// The widgets side by side; the first one takes the spare width.
QHBoxLayout *formRow(const QList<QWidget *> &widgets);

/// A button as wide as its text needs.
QPushButton *formButton(const QString &text);

/// A field for a whole number that takes a typed one when it is complete.
QSpinBox *formNumber(int least, int most);

/// A box that shows whether a device is plugged in, and that a person plugs it in and out with.
QCheckBox *formPlug();

/// The grid of @p panel, without margins; its second column takes the spare width.
QGridLayout *formGrid(QWidget *panel);

/// A choice of @p names; the index of each is its value.
QComboBox *formChoice(const QStringList &names);

} // namespace simulator
