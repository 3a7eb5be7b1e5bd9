// The hash table engine against a map, on a chip, through random adds and deletes.
#include "tests/eml_support.h"

namespace ldsdk::test::eml {

namespace {

struct Walk {
    uint32_t table;
    uint32_t steps;
    bool strict;  // with the chip's caches in the way
};

void PrintTo(const Walk &walk, std::ostream *stream)
{
    *stream << "table " << walk.table << ", " << walk.steps << " steps";
}

class EmlWalk : public EmlUp, public testing::WithParamInterface<Walk> {};

INSTANTIATE_TEST_SUITE_P(Tables, EmlWalk,
                         testing::Values(Walk{2, 2000, false}, Walk{3, 3000, false},
                                         Walk{3, 3000, true}, Walk{4, 2000, false},
                                         Walk{5, 3000, true}, Walk{6, 3000, true},
                                         Walk{17, 3000, false}, Walk{18, 2000, false}),
                         [](const testing::TestParamInfo<Walk> &param) {
                             return "table" + std::to_string(param.param.table) +
                                    (param.param.strict ? "_caches" : "");
                         });

TEST_P(EmlWalk, AgreesWithAMap)
{
    const Walk walk = GetParam();
    const Shape &shape = shape_of(walk.table);
    const uint32_t seed = walk.table * 2 + (walk.strict ? 1 : 0);
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](uint32_t limit) { return static_cast<uint32_t>(random()) % limit; };
    ASSERT_EQ(model::eml_cache_strict_set(0, walk.strict), model::kOk);
    // Keys of 16 buckets, more than they and the flee store have room for.
    std::vector<Bytes> pool;
    while (pool.size() < 200) {
        Bytes key = random_bytes(random, shape.key);
        if (const auto [one, two] = buckets_of(shape, key); one < 16 && two < 16) {
            pool.push_back(std::move(key));
        }
    }
    Reference reference;
    uint32_t fled = 0;
    uint32_t refused = 0;
    uint32_t moved = 0;
    // Fills the table for most of the way, then empties it.
    for (uint32_t step = 0; step < walk.steps && !HasFailure(); step++) {
        SCOPED_TRACE("step " + std::to_string(step));
        const Bytes &key = pool[below(200)];
        const uint32_t percent = below(100);
        const uint32_t adds = step < walk.steps / 4 * 3 ? 80 : 25;
        const bool present = reference.contains(key);
        const bool in_flee = present && lookup(shape, key)->second;
        const Image at = image(shape);
        Reference after = reference;
        if (percent < adds) {
            const Entry entry = {random_ad(random, shape), below(2) == 0 ? 15 : 1 + below(14)};
            const bool stuck = !present && homeless(shape, at, key);
            uint32_t expected = NP_OK;
            if (shape.cpu && !present && count(shape) == 8 * shape.buckets) {
                expected = NP_ERR_TABLE_FULL;
            }
            else if (stuck && !shape.flee) {
                expected = NP_ERR_HASH_CONFLICT;
            }
            else if (stuck && flee_used(shape) == kFleeRows) {
                expected = NP_ERR_TABLE_FULL;
            }
            uint32_t location = 9;
            uint32_t index = 0xffffffff;
            ASSERT_EQ(add(shape, key, entry, &location, &index), expected);
            if (expected == NP_OK) {
                after[key] = entry;
                ASSERT_EQ(location, shape.cpu ? (stuck || in_flee ? 1u : 0u) : 9u);
                const std::vector<uint32_t> hits = image(shape).find(key);
                ASSERT_EQ(index, shape.cpu ? 0xffffffff : hits.at(0));
            }
            refused += expected != NP_OK ? 1 : 0;
            fled += expected == NP_OK && stuck ? 1 : 0;
            moved += !present && !stuck && crowded(shape, at, key) ? 1 : 0;
        }
        else if (percent < 96) {
            const uint32_t type = below(3);
            ASSERT_EQ(del(shape, key, type), NP_OK);
            const bool is_static = present && reference[key].status == 15;
            if (in_flee || type == 2 || (type == 0) == is_static) {
                after.erase(key);
            }
        }
        else {
            const uint32_t index = below(8 * 16);
            ASSERT_EQ(Np_Tarn_EML_ItemDelByIndex(0, shape.table, 0, index), NP_OK);
            if (at.entry(index).status != 0) {
                after.erase(key_of(shape, at.item(index)));
            }
            else if (shape.cpu) {
                ASSERT_EQ(image(shape).bytes, at.bytes);
            }
        }
        reference = std::move(after);
        ASSERT_EQ(lookup(shape, key).has_value(), reference.contains(key));
        if (step % 250 == 249 || step + 1 == walk.steps) {
            check_all(shape, reference);
        }
    }
    EXPECT_GT(refused, 0u);
    EXPECT_EQ(moved > 0, shape.cpu);
    EXPECT_EQ(fled > 0, shape.flee);
    for (const auto &[key, entry] : reference) {
        ASSERT_EQ(del(shape, key, 2), NP_OK);
    }
    check_all(shape, {});
    EXPECT_EQ(count(shape), 0u);
}

}  // namespace

}  // namespace ldsdk::test::eml
