#pragma once

#include "text/MTextReader.h"

/// Where the contents of a multi-line text stand: lines broken, runs placed about the text's location, along its
/// baseline and across it.
struct MTextLayout {
    struct Request {
        double height = 1.0, widthFactor = 1.0, oblique = 0.0;
        double lineWidth = 0.0; ///< where lines are broken; 0 for nowhere
        double spacingFactor = 1.0;
        int attachment = 1; ///< 1 top left to 9 bottom right, by rows
    };
    /// A stretch of one look on one line; never empty.
    struct Run {
        std::wstring text;
        MTextLook look;
        double x = 0.0, y = 0.0; ///< left end of its baseline
        double width = 0.0;
    };

    MTextLayout(std::wstring_view contents, const Request& request);
    bool isEmpty() const { return runs.empty(); }

    std::vector<Run> runs;
    /// The smallest rectangle about the runs, baseline to height, where these lean; all 0 when there are none.
    double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0;

private:
    void addLine(const std::vector<MTextPiece>& pieces, double x, double y);
    void addRun(std::wstring text, const MTextLook& look, double x, double y);
    void addStack(const MTextPiece& piece, double x, double y);
    void bound();
};
