#pragma once

#include <string>

/// One colour: three channels 0..255, and whether it was given at all.
class htmlColor {
public:
    htmlColor() = default; // black, not set
    htmlColor(unsigned char red, unsigned char green, unsigned char blue) :
        m_red(red),
        m_green(green),
        m_blue(blue),
        m_set(true)
    {
    }
    virtual ~htmlColor() = default;
    htmlColor(const htmlColor&) = default;
    htmlColor& operator=(const htmlColor&) = default;

    bool isSet() const { return m_set; }

    /// "rgb(red,green,blue)", set or not.
    std::string text() const;

private:
    unsigned char m_red = 0;
    unsigned char m_green = 0;
    unsigned char m_blue = 0;
    bool m_set = false;
};
