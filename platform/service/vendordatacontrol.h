#pragma once

#include "kvglobal/kvglobal.h"

/// The unit's vendor data: a small memory with a fixed place for each item, kept without power.
/// Any thread.
class KV_API VendorDataControl
{
public:
    /// The number of an item. Which items have a place is a matter of the unit's configuration.
    enum VendorPos : int {};

    /// Where an item lies, in bytes from the beginning, and how many bytes it has. 0 on success;
    /// any other value leaves \a offset and \a length as they were.
    static int getVendorPosOffset(VendorPos position, int &offset, int &length);

    /// Writes \a length bytes of \a data at \a offset; 0 on success.
    static int saveVendorDataString(char *data, int offset, int length);

    /// Writes \a count 32-bit integers in the unit's byte order at \a offset, where \a length bytes
    /// belong to the item; 0 on success, and nothing is written where they are more.
    static int saveVendorDataInt(int *data, int count, int offset, int length);
};
