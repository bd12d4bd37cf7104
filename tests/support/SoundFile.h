#pragma once

#include <QString>
#include <QVector>

// Sounds of the tests: made as files, and read from files, as one channel of 16-bit samples.

constexpr int soundSampleRate = 44100;

/// A sine of @p hertz that lasts @p milliseconds.
QVector<qint16> tone(double hertz, int milliseconds);

/// Writes @p samples as a RIFF WAVE file. Fails the test when it cannot.
void writeWaveFile(const QString &path, const QVector<qint16> &samples);

/// The samples of a sound file of whatever format; empty when it cannot be read within some seconds.
QVector<qint16> readSoundFile(const QString &path);

/// How strong @p hertz is in @p samples, as a share of their whole power: 1 for a pure sine.
double shareOf(double hertz, const QVector<qint16> &samples);
