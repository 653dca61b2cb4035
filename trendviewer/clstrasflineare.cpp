// SPDX-License-Identifier: MIT
#include "trendviewer/clstrasflineare.h"

#include "platform/runtimeerror.h"

#include <cmath>

namespace velt {
namespace {

double checked(double result) {
    if (!std::isfinite(result)) throw RuntimeError(ErrorNumber::Overflow);
    return result;
}

}  // namespace

double clsTrasfLineare::fx(double x) const { return checked(x * m_ + q_); }

void clsTrasfLineare::Xmin(double value) {
    xMin_ = value;
    recompute();
}

void clsTrasfLineare::Xmax(double value) {
    xMax_ = value;
    recompute();
}

void clsTrasfLineare::Ymin(double value) {
    yMin_ = value;
    recompute();
}

void clsTrasfLineare::Ymax(double value) {
    yMax_ = value;
    recompute();
}

void clsTrasfLineare::SetMinMax(double xMin, double xMax, double yMin, double yMax) {
    xMin_ = xMin;
    xMax_ = xMax;
    yMin_ = yMin;
    yMax_ = yMax;
    recompute();
}

void clsTrasfLineare::recompute() {
    if (xMax_ == xMin_) return;
    const double slope = checked((yMax_ - yMin_) / (xMax_ - xMin_));
    const double offset = checked(yMin_ - slope * xMin_);
    m_ = slope;
    q_ = offset;
}

}  // namespace velt
