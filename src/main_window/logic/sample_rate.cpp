#include "main_window/logic/sample_rate.h"

#include <algorithm>

namespace orbkl4 {

double SampleRate::operator()(double seconds, std::int64_t count) {
    if (known_ > 0 && count < points_[known_ - 1].count) Clear();  // counted from 0 again
    if (known_ == points_.size()) {
        std::shift_left(points_.begin(), points_.end(), 1);
        --known_;
    }
    points_[known_++] = {seconds, count};
    const Point& oldest = points_.front();
    if (seconds <= oldest.seconds) return 0;
    return static_cast<double>(count - oldest.count) / (seconds - oldest.seconds);
}

}  // namespace orbkl4
