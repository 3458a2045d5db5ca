#include "jet/byte_reader.h"

#include <bit>

#include "jet/error.h"

namespace jet {

double ByteReader::f64(std::size_t offset) const { return std::bit_cast<double>(u64(offset)); }

float ByteReader::f32(std::size_t offset) const { return std::bit_cast<float>(u32(offset)); }

void ByteReader::damaged(const char* reason) const { throw Error(ErrorKind::Damaged, reason, page_); }

}  // namespace jet
