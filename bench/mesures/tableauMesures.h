#pragma once

#include <functional>
#include <string>
#include <vector>

/// The rows of one benchmark on standard output. Remembers whether every bar was held.
class tableauMesures {
public:
    /// @param tailles growing numbers of items that each row is measured with; @param item what they count, as "point"
    tableauMesures(std::vector<int> tailles, std::string item);

    const std::vector<int>& tailles() const { return m_tailles; }

    /// Says what the columns of croissance() are.
    void enTete() const;
    /// One row: seconds and nanoseconds an item for each size. At the largest size an item may take three times what it
    /// takes at the first one and the floor takes at the largest: where cost is not linear it takes a hundred times.
    /// A growth beyond three is marked, held or not.
    /// @param plancher nanoseconds an item that memory alone takes at the largest size, where the caches are too small
    void croissance(const std::string& nom, const std::function<double(int taille)>& secondes, double plancher = 0.0);
    /// The same row for a floor, which nothing judges. @return its nanoseconds an item at the largest size
    double plancher(const std::string& nom, const std::function<double(int taille)>& secondes) const;
    /// One row: seconds divided by those of the floor. A bar of 0 judges nothing.
    void rapport(const std::string& nom, double secondes, double plancher, double admis);

    bool tenu() const { return m_tenu; }

private:
    struct parItem {
        double premier, dernier; // nanoseconds at the first and at the largest size
    };

    parItem ligne(const std::string& nom, const std::function<double(int taille)>& secondes) const;
    const char* verdict(bool ligneTenue);

    std::vector<int> m_tailles;
    std::string m_item;
    bool m_tenu = true;
};
