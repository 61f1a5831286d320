// Curves: what an operation costs when there are few entries and when there are many. A curve registers
// itself; growth.cpp measures all of them, growth.py shows them.
//
//     const growth::Curve find({"words: find", 0.5}, [](std::size_t count) {
//         Things things(count);                                            // not measured
//         return growth::Microseconds(1000, [&](std::size_t i) { things.Find(i); });
//     });
#pragma once

#include <cstddef>
#include <ctime>
#include <vector>

namespace growth {

struct About {
    const char* name;             // "subject: operation"
    double goal;                  // microseconds an operation at any count
    std::size_t most = 1'000'000; // entries
};

// Processor time of one of `operations` calls, in microseconds.
template <class Operation>
double Microseconds(std::size_t operations, Operation operation)
{
    const auto now = [] {
        timespec time;
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double start = now();
    for (std::size_t i = 0; i < operations; ++i) operation(i);
    return (now() - start) / static_cast<double>(operations);
}

class Curve {
public:
    // Makes so many entries and returns the microseconds of one operation among them.
    using Measure = double (*)(std::size_t count);

    Curve(const About& about, Measure measure) : m_about(about), m_measure(measure) { All().push_back(this); }
    const About& Of() const { return m_about; }
    double At(std::size_t count) const { return m_measure(count); }

    static std::vector<const Curve*>& All()
    {
        static std::vector<const Curve*> curves;
        return curves;
    }

private:
    About m_about;
    Measure m_measure;
};

} // namespace growth
