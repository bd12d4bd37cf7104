#pragma once

#include "host/IDevice.h"

#include <QFlags>

/// The card dispenser. It reports through a 16-bit status word.
class PANOREL_HOST_EXPORT IDispenser : public IDevice
{
    Q_OBJECT

public:
    /// One bit of the status word. Bits without a name carry nothing for the page.
    enum Code {
        CaptureSensor1 = 0x0001,
        CaptureSensor2 = 0x0002,
        DispenseSensor = 0x0004,
        CardEmpty = 0x0008,
        CardPreEmpty = 0x0010,
        CardJam = 0x0020,
        CardOverlap = 0x0040,
        DispenseError = 0x0100,
        CaptureError = 0x0200,
        CardDispensing = 0x0800,
        CardBinFull = 0x1000,
        CommunicationTimeout = 0x4000,
        NotConnected = 0x8000,
    };
    Q_DECLARE_FLAGS(Codes, Code)
    Q_FLAG(Codes)

    explicit IDispenser(QObject *parent = nullptr);
    ~IDispenser() override;

    /// Moves a card to @p position; 4 hands it to the user. The outcome comes as status words.
    virtual void issueCard(const int &position) = 0;

Q_SIGNALS:
    /// The status word, a combination of Code bits.
    void statusChanged(unsigned short code);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(IDispenser::Codes)
