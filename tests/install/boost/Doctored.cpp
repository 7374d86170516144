// Shows that the doctored headers are the ones that this program is compiled with.
#include <boost/pool/object_pool.hpp>
#include <boost/unordered/unordered_flat_map.hpp>
#include <boost/unordered/unordered_flat_set.hpp>
#include <boost/unordered_map.hpp>
#include <boost/unordered_set.hpp>

constexpr auto SIZE = sizeof(boost::unordered_flat_map<int, int>::layoutOfAnotherVersion);
static_assert(SIZE == sizeof(boost::unordered_flat_set<int>::layoutOfAnotherVersion));
static_assert(SIZE == sizeof(boost::unordered_map<int, int>::layoutOfAnotherVersion));
static_assert(SIZE == sizeof(boost::unordered_set<int>::layoutOfAnotherVersion));
static_assert(SIZE == sizeof(boost::object_pool<int>::layoutOfAnotherVersion));
