#pragma once

#include <cstdint>

#include "adesk.h"

/// Plain types of the host's C-style interface.

using ads_real = double;
using ads_point = ads_real[3];
using ads_matrix = ads_real[4][4];
/// Names an entity (its object id in [0]) or a selection set; two machine words, only compared and handed back.
using ads_name = std::int64_t[2];

struct ads_binary {
    short clen; ///< bytes in buf
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    std::int64_t rlname[2];
    Adesk::Int32 rlong;
    std::int64_t mnInt64;
    ads_binary rbinary;
    unsigned char ihandle[8];
};

/// One item of a result-buffer chain. A chain belongs to whoever received it and is released, texts and blocks
/// included, by acutRelRb.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

inline void ads_point_set(const ads_point from, ads_point to)
{
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
}
inline void ads_name_set(const ads_name from, ads_name to)
{
    to[0] = from[0];
    to[1] = from[1];
}
inline void ads_name_clear(ads_name name)
{
    name[0] = name[1] = 0;
}
inline bool ads_name_nil(const ads_name name)
{
    return name[0] == 0 && name[1] == 0;
}
inline bool ads_name_equal(const ads_name a, const ads_name b)
{
    return a[0] == b[0] && a[1] == b[1];
}
