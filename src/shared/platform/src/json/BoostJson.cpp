// Boost.JSON's own sources, compiled here once: only its parser is used, so no library of its is linked.
#include <boost/json/src.hpp>
