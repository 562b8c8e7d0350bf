// What the library shows of itself to the system's loader.
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/loaded_library.h"

namespace hexlume::exports_test {
namespace {

using Names = std::set<std::string>;

// The library's file, read by its sections.
class LibraryImage {
 public:
  LibraryImage() {
    std::ifstream file(LibraryFile(), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    const auto& header = At<ElfW(Ehdr)>(0);
    for (size_t i = 0; i < header.e_shnum; ++i)
      sections.push_back(At<ElfW(Shdr)>(header.e_shoff + i * header.e_shentsize));
  }

  // Names of the symbols that are defined here and seen from outside and have this version node.
  Names Exports(const std::string& node) const {
    Names names;
    const ElfW(Shdr)& table = Section(SHT_DYNSYM);
    const auto symbols = Rows<ElfW(Sym)>(table);
    const auto versions = Rows<ElfW(Versym)>(Section(SHT_GNU_versym));
    for (size_t i = 0; i < symbols.size(); ++i) {
      // The node itself is a symbol too, an absolute one.
      const bool defined = symbols[i].st_shndx != SHN_UNDEF && symbols[i].st_shndx != SHN_ABS;
      if (defined && ELF64_ST_BIND(symbols[i].st_info) != STB_LOCAL && NodeOf(versions.at(i)) == node)
        names.insert(TextOf(table, symbols[i].st_name));
    }
    return names;
  }

  // The texts of the dynamic section's rows with this tag.
  Names Texts(ElfW(Sxword) tag) const {
    Names texts;
    const ElfW(Shdr)& table = Section(SHT_DYNAMIC);
    for (const ElfW(Dyn) & row : Rows<ElfW(Dyn)>(table))
      if (row.d_tag == tag) texts.insert(TextOf(table, row.d_un.d_val));
    return texts;
  }

 private:
  // The name of a version node of this library.
  std::string NodeOf(ElfW(Versym) version) const {
    const ElfW(Shdr)& table = Section(SHT_GNU_verdef);
    for (size_t offset = table.sh_offset, next = 1; next != 0; offset += next) {
      const auto& node = At<ElfW(Verdef)>(offset);
      if (node.vd_ndx == version) return TextOf(table, At<ElfW(Verdaux)>(offset + node.vd_aux).vda_name);
      next = node.vd_next;
    }
    return "no node";
  }

  template <typename Part>
  const Part& At(size_t offset) const {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(Part)) throw std::runtime_error("no library");
    return *reinterpret_cast<const Part*>(bytes.data() + offset);
  }

  const ElfW(Shdr) & Section(ElfW(Word) type) const {
    for (const ElfW(Shdr) & section : sections)
      if (section.sh_type == type) return section;
    throw std::runtime_error("no such section");
  }

  template <typename Row>
  std::vector<Row> Rows(const ElfW(Shdr) & table) const {
    std::vector<Row> rows;
    for (size_t i = 0; i < table.sh_size / sizeof(Row); ++i)
      rows.push_back(At<Row>(table.sh_offset + i * sizeof(Row)));
    return rows;
  }

  std::string TextOf(const ElfW(Shdr) & table, size_t offset) const {
    return &At<char>(sections.at(table.sh_link).sh_offset + offset);
  }

  std::vector<char> bytes;
  std::vector<ElfW(Shdr)> sections;
};

bool IsMapped(const std::string& part) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    if (line.find(part) != std::string::npos) return true;
  return false;
}

TEST(ExportTable, holds_exactly_the_nine_exports_the_dialogs_answers_and_the_calls_on_metafiles) {
  EXPECT_EQ((Names{"vzMetaMake", "vzReMetaMake", "vzRotMetaMake", "vzFullSizeMetaMake", "vzDXFMetaMake",
                   "vzDXFReMetaMake", "vzDXFRotMetaMake", "vzDXFFullSizeMetaMake", "vzDXFSetFontMode",
                   "vzSetDialogAnswers", "vzHiddenLayerExists", "GetEnhMetaFileBits", "DeleteEnhMetaFile",
                   "EnhMetaFileBytes", "CloseEnhMetaFile"}),
            LibraryImage().Exports("HEXLUME_1"));
  EXPECT_EQ(Names{"StreamNextMetafile"}, LibraryImage().Exports("HEXLUME_PRIVATE"));  // for the tool
  EXPECT_EQ(Names{}, LibraryImage().Exports("libhexlume.so.1"));  // those without a node of their own
}

TEST(ExportTable, tells_the_name_of_the_library) {
  EXPECT_EQ(Names{"libhexlume.so.1"}, LibraryImage().Texts(DT_SONAME));
}

// A fault leaves as an exception: library and host must have one runtime between them.
TEST(ExportTable, the_cxx_runtime_is_a_shared_one) {
  EXPECT_EQ(1u, LibraryImage().Texts(DT_NEEDED).count("libstdc++.so.6"));
  EXPECT_EQ(1u, LibraryImage().Texts(DT_NEEDED).count("libgcc_s.so.1"));
}

TEST(LibraryLife, files_beside_the_library_stay) {
  for (const char* name : {"libhexlume.ini", "Hexlume.ini", "libhexlume.txt"}) {
    const LoadedLibrary library(name);
    EXPECT_TRUE(std::filesystem::exists(library.Folder() / name)) << name;
  }
}

TEST(LibraryLife, can_be_loaded_and_unloaded_again_and_again) {
  for (int32_t load = 0; load < 50; ++load) {
    const LoadedLibrary library;
    EXPECT_EQ(7, library.dxfSetFontMode(7));
  }
}

TEST(LibraryLife, is_gone_from_the_process_when_it_is_unloaded) {
  std::string folder;
  {
    const LoadedLibrary library;
    folder = library.Folder().string() + '/';
    HENHMETAFILE metafile = nullptr;
    EXPECT_EQ(30, library.metaMake("no such file.dxf", &metafile, 0, 0));
    EXPECT_TRUE(IsMapped(folder));
  }
  EXPECT_FALSE(IsMapped(folder));
}

}  // namespace
}  // namespace hexlume::exports_test
