// Placement of hash table items on plain arrays, without a chip.
#include "tests/eml_support.h"

#include <cstring>

namespace ldsdk::test::eml {

namespace {

// ---- placement on plain arrays ------------------------------------------------------------------

// A table of numbers; number n lives in the buckets that `home` gives it, 0 is an empty place.
class PlainTable {
  public:
    explicit PlainTable(uint32_t buckets)
        : shadow(buckets), store{0, 0, shadow.data(), read, write}, items_(8 * buckets)
    {
        current_ = this;
    }
    PlainTable(const PlainTable &) = delete;
    PlainTable &operator=(const PlainTable &) = delete;

    uint32_t add(uint32_t number, uint32_t one, uint32_t two)
    {
        set_home(number, one, two);
        NpEmlPlace place = {one, two, 0, 0, 0, 0};
        uint32_t result = Np_EmlPlaceFind(shadow.data(), &place);
        check_choice(result, place);
        if (result == NP_OK) {
            uint8_t item[NP_EML_ITEM_MAX] = {};
            std::memcpy(item, &number, sizeof(number));
            result =
                (place.ulMove == 0 ? Np_EmlPlaceDirect : Np_EmlPlaceMove)(&store, &place, item);
            moves += place.ulMove;
        }
        return result;
    }
    bool drop(uint32_t index)
    {
        items_[index] = 0;
        return Np_EmlPlaceDrop(shadow.data(), index);
    }
    uint32_t at(uint32_t index) const
    {
        return items_[index];
    }
    bool holds(uint32_t number) const
    {
        const auto [one, two] = homes_[number];
        for (uint32_t slot = 0; slot < 4; slot++) {
            if (items_[8 * one + 4 + slot] == number || items_[8 * two + slot] == number) {
                return true;
            }
        }
        return false;
    }
    void check_shadow() const
    {
        expect_shadow(shadow.data(), static_cast<uint32_t>(shadow.size()), [&](uint32_t index) {
            return items_[index] == 0 ? Homes() : homes_[items_[index]];
        });
    }

    std::vector<NpEmlBucketInfo> shadow;
    NpEmlStore store;
    uint32_t moves = 0;

  private:
    void set_home(uint32_t number, uint32_t one, uint32_t two)
    {
        homes_.resize(std::max<size_t>(homes_.size(), number + 1));
        homes_[number] = {one, two};
    }
    static uint32_t index(uint32_t bucket, uint32_t slot, uint32_t half)
    {
        return 8 * bucket + slot + (half == 0 ? 4 : 0);
    }
    static uint32_t read(const NpEmlStore *, uint32_t bucket, uint32_t slot, uint32_t half,
                         uint8_t *item)
    {
        std::memcpy(item, &current_->items_[index(bucket, slot, half)], sizeof(uint32_t));
        return NP_OK;
    }
    static uint32_t write(const NpEmlStore *, uint32_t bucket, uint32_t slot, uint32_t half,
                          const uint8_t *item)
    {
        const uint32_t lost = current_->items_[index(bucket, slot, half)];
        std::memcpy(&current_->items_[index(bucket, slot, half)], item, sizeof(uint32_t));
        // What was overwritten stands elsewhere by now.
        EXPECT_TRUE(lost == 0 || current_->holds(lost)) << lost;
        return NP_OK;
    }

    // The first of the candidates with most room: two direct inserts, then eight displacements.
    void check_choice(uint32_t result, const NpEmlPlace &place) const
    {
        struct Candidate {
            uint32_t room, move, half, bucket, slot;
        };
        std::array<Candidate, 10> all = {};
        size_t num = 0;
        const uint32_t home[2] = {place.ulHash1Bucket, place.ulHash2Bucket};
        const auto room = [&](uint32_t bucket, uint32_t half) {
            return static_cast<uint32_t>(std::count(&items_[index(bucket, 0, half)],
                                                    &items_[index(bucket, 0, half)] + 4, 0));
        };
        for (const uint32_t half : {0u, 1u}) {
            all[num++] = {room(home[half], half), 0, half, home[half], 0};
        }
        for (const uint32_t half : {0u, 1u}) {
            for (uint32_t slot = 0; slot < 4; slot++) {
                const uint32_t number = items_[index(home[half], slot, half)];
                if (number != 0) {
                    const auto [one, two] = homes_[number];
                    const uint32_t target = half == 0 ? two : one;
                    all[num++] = {room(target, 1 - half), 1, half, target, slot};
                }
            }
        }
        const auto best = std::max_element(
            all.begin(), all.end(),
            [](const Candidate &a, const Candidate &b) { return a.room < b.room; });
        ASSERT_EQ(result, best->room == 0 ? NP_ERR_HASH_CONFLICT : NP_OK);
        if (result == NP_OK) {
            ASSERT_EQ(place.ulMove, best->move);
            ASSERT_EQ(place.ulBucketFlag, best->half);
            ASSERT_EQ(place.ulInsertBucket, best->bucket);
            ASSERT_EQ(place.ulMoveSlot, best->slot);
        }
    }

    static PlainTable *current_;
    std::vector<uint32_t> items_;
    std::vector<std::pair<uint32_t, uint32_t>> homes_;
};

PlainTable *PlainTable::current_ = nullptr;

TEST(EmlPlacement, MillionsOfSteps)
{
    for (const uint32_t buckets : {2u, 16u, 128u}) {
        SCOPED_TRACE(buckets);
        std::mt19937 random(buckets);
        PlainTable table(buckets);
        uint32_t next = 0;
        uint32_t used = 0;
        uint32_t refused = 0;
        for (uint32_t step = 0; step < 700000; step++) {
            // Swings between a crowded and a half empty table.
            const bool grow = random() % 100 < (step / 2000 % 2 == 0 ? 70 : 30);
            if (grow) {
                const uint32_t result = table.add(++next, static_cast<uint32_t>(random()) % buckets,
                                                  static_cast<uint32_t>(random()) % buckets);
                ASSERT_TRUE(result == NP_OK || result == NP_ERR_HASH_CONFLICT);
                ASSERT_EQ(table.holds(next), result == NP_OK);
                used += result == NP_OK ? 1 : 0;
                refused += result == NP_OK ? 0 : 1;
            }
            else {
                const uint32_t index = static_cast<uint32_t>(random()) % (8 * buckets);
                const bool there = table.at(index) != 0;
                ASSERT_EQ(table.drop(index), there);
                used -= there ? 1 : 0;
            }
            if (step % 5000 == 0) {
                table.check_shadow();
                uint32_t counted = 0;
                for (uint32_t index = 0; index < 8 * buckets; index++) {
                    counted += table.at(index) != 0 ? 1 : 0;
                }
                ASSERT_EQ(counted, used);
            }
            if (HasFailure()) {
                FAIL() << "step " << step << " of seed " << buckets;
            }
        }
        EXPECT_GT(table.moves, 1000u);
        EXPECT_GT(refused, 1000u);
    }
}

TEST(EmlPlacement, AShadowThatDisagreesIsReported)
{
    PlainTable table(2);
    table.shadow[1].aulItem[0] = table.shadow[1].aulItem[1] = 1;
    table.shadow[1].aulItem[2] = table.shadow[1].aulItem[3] = 1;
    uint32_t slot = 9;
    EXPECT_EQ(Np_EmlPlaceIdle(&table.store, 1, NP_EML_HALF_HASH1, &slot), NP_ERR_FAIL);
    EXPECT_EQ(slot, 9u);
    EXPECT_EQ(Np_EmlPlaceIdle(&table.store, 1, NP_EML_HALF_HASH2, &slot), NP_OK);
    EXPECT_EQ(slot, 3u);
}

}  // namespace

}  // namespace ldsdk::test::eml
