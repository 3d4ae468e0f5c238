#pragma once

#include "db/entities/CurvePieces.h"

/// Where two pieces meet: parameter on each.
struct PieceMeeting {
    double onFirst, onSecond;
};

/// At most two. Pieces that share a stretch do not meet; those in line that only touch end to end do.
struct PieceMeetings {
    PieceMeeting at[2];
    int count = 0;
    void add(double onFirst, double onSecond) { at[count++] = {onFirst, onSecond}; }
};

/// `tolerance` in drawing units: how far beyond its ends a piece still reaches, and how near a tangent must pass.
PieceMeetings meetingsOf(const CurvePiece& first, const CurvePiece& second, double tolerance);
