// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

namespace velt {

/// Maps one range of numbers linearly onto another: fx(x) = x * M + Q. Every change of a range
/// computes M and Q anew; a change while `Xmax` equals `Xmin` keeps them. A new object maps
/// everything to 0 until a range is set. A result beyond the doubles raises RuntimeError 6.
class VELT_API clsTrasfLineare {
public:
    [[nodiscard]] double fx(double x) const;

    [[nodiscard]] double M() const { return m_; }
    /// Holds until the next change of a range.
    void M(double slope) { m_ = slope; }
    [[nodiscard]] double Q() const { return q_; }
    /// Holds until the next change of a range.
    void Q(double offset) { q_ = offset; }

    [[nodiscard]] double Xmin() const { return xMin_; }
    void Xmin(double value);
    [[nodiscard]] double Xmax() const { return xMax_; }
    void Xmax(double value);
    /// Image of Xmin.
    [[nodiscard]] double Ymin() const { return yMin_; }
    void Ymin(double value);
    /// Image of Xmax.
    [[nodiscard]] double Ymax() const { return yMax_; }
    void Ymax(double value);
    void SetMinMax(double xMin, double xMax, double yMin, double yMax);

private:
    void recompute();

    double xMin_ = 0;
    double xMax_ = 100;
    double yMin_ = 0;
    double yMax_ = 100;
    double m_ = 0;
    double q_ = 0;
};

}  // namespace velt
