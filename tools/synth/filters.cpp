#include "filters.h"

namespace grub {

void cutLow(Samples& sound, double corner, int rate) {
    StateFilter filter(corner, kFlatQ, rate);
    for (double& sample : sound) {
        filter.push(sample);
        sample = filter.high();
    }
}

void cutHigh(Samples& sound, double corner, int rate) {
    StateFilter filter(corner, kFlatQ, rate);
    for (double& sample : sound) {
        filter.push(sample);
        sample = filter.low();
    }
}

}  // namespace grub
