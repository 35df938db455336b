#include <asio/impl/src.hpp>
