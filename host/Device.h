#pragma once

/// Kinds of device that PluginInterface hands out. The values are the platform's own.
enum class Device {
    Printer = 8,
    CardDispenser = 128,
    PassportScanner = 256,
    DocumentScanner = 512,
};
