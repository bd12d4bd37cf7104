#pragma once

#include <QList>

class QComboBox;
class QHBoxLayout;
class QPushButton;
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

/// A choice of @p names; the index of each is its value.
QComboBox *formChoice(const QStringList &names);

} // namespace simulator
