// The mutations of metafiles: those of records, and those of libFuzzer, in turn.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <random>
#include <vector>

#include "fuzz/target.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t mostSize);

namespace {

using Words = std::vector<uint32_t>;

// Records as the player takes them; the last one can be cut off.
std::vector<Words> RecordsOf(const uint8_t* bytes, size_t size) {
  std::vector<Words> records;
  Words all(size / 4);
  if (!all.empty()) std::memcpy(all.data(), bytes, 4 * all.size());
  size_t place = 0;
  while (place + 1 < all.size()) {
    const size_t length = std::clamp<size_t>(all[place + 1] / 4, 2, all.size() - place);
    records.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(place),
                         all.begin() + static_cast<std::ptrdiff_t>(place + length));
    place += length;
  }
  return records;
}

constexpr uint32_t types[] = {1,  2,  3,  4,  9,  10, 11, 12, 14, 15, 17, 18, 19, 20, 22, 24, 25, 27,
                              30, 37, 38, 39, 40, 41, 42, 43, 45, 46, 47, 48, 54, 55, 57, 58, 59, 60,
                              61, 62, 67, 70, 72, 75, 76, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 95};
constexpr uint32_t values[] = {0,          1,          2,          3,          7,          8,
                               100,        1000,       0xFFFF,     0x7FFF,     0x8000,     0x7FFFFFFF,
                               0x80000000, 0xFFFFFFFF, 0x80000005, 0x80000007, 0x42C80000, 0x7F800000,
                               0x7FC00000, 0xFF7FFFFF, 0x80000013};

class Mutation {
 public:
  Mutation(std::vector<Words> given, uint32_t seed) : records(std::move(given)), random(seed) {}

  void Change() {
    const size_t place = Below(records.size());
    switch (Below(8)) {
      case 0: records.erase(records.begin() + static_cast<std::ptrdiff_t>(place)); break;
      case 1: Insert(Record(records[place])); break;
      case 2: std::swap(records[place], records[Below(records.size())]); break;
      case 3: Insert(NewRecord()); break;
      case 4: Resize(records[place]); break;
      default: ChangeWord(records[place]); break;
    }
  }

  bool IsEmpty() const { return records.empty(); }

  size_t Write(uint8_t* bytes, size_t mostSize) const {
    size_t size = 0;
    for (const Words& record : records) {
      if (size + 4 * record.size() > mostSize) break;
      std::memcpy(bytes + size, record.data(), 4 * record.size());
      size += 4 * record.size();
    }
    return size;
  }

 private:
  using Record = Words;

  size_t Below(size_t end) { return end == 0 ? 0 : random() % end; }

  void Insert(Record record) {
    records.insert(records.begin() + static_cast<std::ptrdiff_t>(Below(records.size() + 1)),
                   std::move(record));
  }

  Record NewRecord() {
    const size_t length = 2 + Below(14);
    Record record = {types[Below(std::size(types))], static_cast<uint32_t>(4 * length)};
    while (record.size() < length) record.push_back(values[Below(std::size(values))]);
    return record;
  }

  void Resize(Record& record) {
    record.resize(std::clamp<size_t>(record.size() + Below(5), 4, 1000) - 2);
    record[1] = static_cast<uint32_t>(4 * record.size());
  }

  // Sizes stay as they are mostly, so that every record is read.
  void ChangeWord(Record& record) {
    const size_t first = Below(30) == 0 ? 0 : std::min<size_t>(2, record.size() - 1);
    uint32_t& word = record[first + Below(record.size() - first)];
    switch (Below(4)) {
      case 0: word = values[Below(std::size(values))]; break;
      case 1: word += static_cast<uint32_t>(Below(64)) - 32; break;
      case 2: word ^= uint32_t{1} << Below(32); break;
      default: word = static_cast<uint32_t>(random()); break;
    }
  }

  std::vector<Words> records;
  std::minstd_rand random;
};

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t mostSize, unsigned int seed) {
  if (seed % 4 == 0 || size < 1 || mostSize < 1) return LLVMFuzzerMutate(bytes, size, mostSize);
  if (seed % 32 == 1) bytes[0] = static_cast<uint8_t>(seed >> 8);
  Mutation mutation(RecordsOf(bytes + 1, size - 1), seed / 4);
  for (uint32_t changes = 1 + seed / 64 % 4; changes > 0 && !mutation.IsEmpty(); --changes) mutation.Change();
  return 1 + mutation.Write(bytes + 1, mostSize - 1);
}
