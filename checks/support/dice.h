#ifndef CHECKS_SUPPORT_DICE_H
#define CHECKS_SUPPORT_DICE_H

/// Where the random checks get their decisions from: a seeded generator, or the bytes that a fuzzer varies.
class Dice
{
public:
    virtual ~Dice() = default;

    /// A number from 0 to bound - 1; bound must be at least 1. A source that is used up gives 0.
    virtual int below(int bound) = 0;

    /// True once in so many times on average; with a source that is used up never, so that rare events stay rare.
    bool oneIn(int chances) { return below(chances) == chances - 1; }

    /// One of the members; the list must not be empty.
    template <typename List>
    auto oneOf(const List& list)
    {
        return list[below(static_cast<int>(list.size()))];
    }
};

#endif
