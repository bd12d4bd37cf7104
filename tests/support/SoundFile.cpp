#include "tests/support/SoundFile.h"

#include <QAudioDecoder>
#include <QDataStream>
#include <QFile>
#include <QtMath>
#include <QtTest>

#include <complex>

namespace {

constexpr int decodeTimeout = 20000;

QAudioFormat sampleFormat()
{
    QAudioFormat format;
    format.setSampleRate(soundSampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::LittleEndian);
    format.setCodec(QStringLiteral("audio/x-raw"));
    return format;
}

} // namespace

QVector<qint16> tone(double hertz, int milliseconds)
{
    QVector<qint16> samples(soundSampleRate * milliseconds / 1000);
    for (int i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<qint16>(12000 * qSin(2 * M_PI * hertz * i / soundSampleRate));
    return samples;
}

// The canonical header: RIFF, format chunk of 16 bytes (PCM), data chunk.
void writeWaveFile(const QString &path, const QVector<qint16> &samples)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        QTest::qFail(qPrintable(path + file.errorString()), __FILE__, __LINE__);
        return;
    }
    const quint32 bytes = static_cast<quint32>(samples.size()) * 2;
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + bytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << quint32(soundSampleRate)
           << quint32(soundSampleRate * 2) << quint16(2) << quint16(16);
    stream.writeRawData("data", 4);
    stream << bytes;
    for (const qint16 sample : samples)
        stream << sample;
}

QVector<qint16> readSoundFile(const QString &path)
{
    QVector<qint16> samples;
    bool ended = false;
    QAudioDecoder decoder;
    decoder.setAudioFormat(sampleFormat());
    decoder.setSourceFilename(path);
    QObject::connect(&decoder, &QAudioDecoder::bufferReady, [&] {
        const QAudioBuffer buffer = decoder.read();
        const auto *first = buffer.constData<qint16>();
        for (int i = 0; i < buffer.sampleCount(); ++i)
            samples.append(first[i]);
    });
    QObject::connect(&decoder, &QAudioDecoder::finished, [&ended] { ended = true; });
    QObject::connect(&decoder, QOverload<QAudioDecoder::Error>::of(&QAudioDecoder::error),
                     [&ended] { ended = true; });
    decoder.start();
    return QTest::qWaitFor([&ended] { return ended; }, decodeTimeout) ? samples : QVector<qint16>();
}

// One line of the discrete Fourier transform, with Parseval's sum as the whole.
double shareOf(double hertz, const QVector<qint16> &samples)
{
    std::complex<double> line = 0;
    double power = 0;
    for (int i = 0; i < samples.size(); ++i) {
        const double angle = -2 * M_PI * hertz * i / soundSampleRate;
        line += double(samples.at(i)) * std::polar(1.0, angle);
        power += double(samples.at(i)) * samples.at(i);
    }
    return power > 0 ? 2 * std::norm(line) / (power * samples.size()) : 0;
}
