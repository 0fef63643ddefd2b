#include "elf_image.h"

#include <fcntl.h>
#include <gelf.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "packed_relocations.h"

namespace abi_check {
namespace {

// Section types libelf's headers may not name: the relative-only format and the Android
// packed formats, which a platform build can use for its dynamic relocations.
constexpr unsigned kShtRelr = 19;
constexpr unsigned kShtAndroidRel = 0x60000001;
constexpr unsigned kShtAndroidRela = 0x60000002;
constexpr unsigned kShtAndroidRelr = 0x6fffff00;

Elf* asElf(void* p) { return static_cast<Elf*>(p); }
Elf_Scn* asScn(void* p) { return static_cast<Elf_Scn*>(p); }

// A table section's header and data; null when it has no data or no entry size.
Elf_Data* tableOf(Elf_Scn* scn, GElf_Shdr* shdr) {
    gelf_getshdr(scn, shdr);
    Elf_Data* data = elf_getdata(scn, nullptr);
    return data != nullptr && shdr->sh_entsize != 0 ? data : nullptr;
}

}  // namespace

ElfImage::ElfImage(const std::string& path) : mPath(path) {
    if (elf_version(EV_CURRENT) == EV_NONE) {
        mError = "libelf is out of date";
        return;
    }
    mFd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (mFd < 0) {
        mError = std::string("cannot open: ") + std::strerror(errno);
        return;
    }
    mElf = elf_begin(mFd, ELF_C_READ, nullptr);
    if (mElf == nullptr || elf_kind(asElf(mElf)) != ELF_K_ELF) {
        mError = "not an ELF file";
        return;
    }
    load();
}

ElfImage::~ElfImage() {
    if (mElf != nullptr) elf_end(asElf(mElf));
    if (mFd >= 0) close(mFd);
}

const char* ElfImage::machineName() const {
    return mMachine == EM_AARCH64 ? "AArch64" : mMachine == EM_X86_64 ? "x86-64" : "?";
}

void ElfImage::load() {
    Elf* elf = asElf(mElf);
    GElf_Ehdr ehdr;
    if (gelf_getehdr(elf, &ehdr) == nullptr) {
        mError = std::string("no ELF header: ") + elf_errmsg(-1);
        return;
    }
    if (ehdr.e_ident[EI_CLASS] != ELFCLASS64 || ehdr.e_ident[EI_DATA] != ELFDATA2LSB) {
        mError = "not a 64-bit little-endian ELF file";
        return;
    }
    if (ehdr.e_machine != EM_AARCH64 && ehdr.e_machine != EM_X86_64) {
        mError = "machine " + std::to_string(ehdr.e_machine) + " is neither AArch64 nor x86-64";
        return;
    }
    if (ehdr.e_type != ET_DYN) {
        mError = "not a shared library";
        return;
    }
    mMachine = ehdr.e_machine;
    if (elf_getshdrstrndx(elf, &mShstrndx) != 0) mShstrndx = 0;

    bool haveDynsym = false;
    for (Elf_Scn* scn = elf_nextscn(elf, nullptr); scn != nullptr; scn = elf_nextscn(elf, scn)) {
        GElf_Shdr shdr;
        if (gelf_getshdr(scn, &shdr) == nullptr) continue;
        switch (shdr.sh_type) {
            case SHT_DYNSYM:
                haveDynsym = true;
                readSymbols(scn, true);
                break;
            case SHT_SYMTAB:
                readSymbols(scn, false);
                break;
            case SHT_RELA:
            case SHT_REL:
            case kShtAndroidRel:
            case kShtAndroidRela:
                // Only what the loader applies; a .o's relocations are not in a library.
                if (shdr.sh_flags & SHF_ALLOC) readRelocations(scn);
                break;
            case kShtRelr:
            case kShtAndroidRelr:
                readRelr(scn);
                break;
            default:
                break;
        }
        if (!mError.empty()) return;
    }
    if (!haveDynsym) mError = "no dynamic symbol table";
}

void ElfImage::readSymbols(void* scnp, bool dynamic) {
    Elf* elf = asElf(mElf);
    GElf_Shdr shdr;
    Elf_Data* data = tableOf(asScn(scnp), &shdr);
    if (data == nullptr) return;
    size_t count = shdr.sh_size / shdr.sh_entsize;
    for (size_t i = 1; i < count; ++i) {
        GElf_Sym sym;
        if (gelf_getsym(data, static_cast<int>(i), &sym) == nullptr) continue;
        const char* name = elf_strptr(elf, shdr.sh_link, sym.st_name);
        if (name == nullptr || *name == '\0') continue;
        Symbol s;
        s.name = name;
        s.value = sym.st_value;
        s.size = sym.st_size;
        s.defined = sym.st_shndx != SHN_UNDEF;
        unsigned bind = GELF_ST_BIND(sym.st_info);
        unsigned vis = GELF_ST_VISIBILITY(sym.st_other);
        s.exported = s.defined && (bind == STB_GLOBAL || bind == STB_WEAK) &&
                     (vis == STV_DEFAULT || vis == STV_PROTECTED);
        s.function = GELF_ST_TYPE(sym.st_info) == STT_FUNC;
        if (s.defined && s.function && s.value != 0) {
            auto range = mByAddress.equal_range(s.value);
            bool known = std::any_of(range.first, range.second,
                                     [&](const auto& entry) { return entry.second == s.name; });
            if (!known) mByAddress.emplace(s.value, s.name);
        }
        if (dynamic) mDynamic.push_back(std::move(s));
    }
}

// A plain table (REL, RELA) or Android's packed one (DT_ANDROID_REL, DT_ANDROID_RELA): the
// same entries, the packed ones decoded first. A packed stream that cannot be decoded makes the
// file unreadable: the slots read without its relocations would be wrong.
void ElfImage::readRelocations(void* scnp) {
    Elf* elf = asElf(mElf);
    Elf_Scn* scn = asScn(scnp);
    GElf_Shdr shdr;
    gelf_getshdr(scn, &shdr);
    const bool packed = shdr.sh_type == kShtAndroidRel || shdr.sh_type == kShtAndroidRela;
    // Without an addend of its own (REL), a relocation adds to the word it fills.
    const bool addends = shdr.sh_type == SHT_RELA || shdr.sh_type == kShtAndroidRela;
    std::vector<RawRelocation> raw;
    if (packed) {
        Elf_Data* data = elf_getdata(scn, nullptr);
        if (data == nullptr || data->d_buf == nullptr) return;
        std::string error;
        if (!decodeAndroidPacked(static_cast<const uint8_t*>(data->d_buf), data->d_size, raw,
                                 error)) {
            const char* name = elf_strptr(elf, mShstrndx, shdr.sh_name);
            mError = std::string("its packed relocations (") + (name != nullptr ? name : "?") +
                     ") cannot be read: " + error;
            return;
        }
    } else {
        Elf_Data* data = tableOf(scn, &shdr);
        if (data == nullptr) return;
        size_t count = shdr.sh_size / shdr.sh_entsize;
        for (size_t i = 0; i < count; ++i) {
            GElf_Rela r;
            if (addends) {
                if (gelf_getrela(data, static_cast<int>(i), &r) == nullptr) continue;
            } else {
                GElf_Rel rel;
                if (gelf_getrel(data, static_cast<int>(i), &rel) == nullptr) continue;
                r.r_offset = rel.r_offset;
                r.r_info = rel.r_info;
                r.r_addend = 0;
            }
            raw.push_back({r.r_offset, r.r_info, r.r_addend});
        }
    }
    // The symbol table the relocations refer to.
    Elf_Scn* symScn = elf_getscn(elf, shdr.sh_link);
    GElf_Shdr symShdr;
    Elf_Data* symData = nullptr;
    if (symScn != nullptr && gelf_getshdr(symScn, &symShdr) != nullptr) {
        symData = elf_getdata(symScn, nullptr);
    }
    for (const RawRelocation& r : raw) {
        Reloc reloc{static_cast<unsigned>(GELF_R_TYPE(r.info)), {}, false, 0, r.addend, addends};
        size_t symIndex = GELF_R_SYM(r.info);
        GElf_Sym sym;
        if (symIndex != 0 && symData != nullptr &&
            gelf_getsym(symData, static_cast<int>(symIndex), &sym) != nullptr) {
            const char* name = elf_strptr(elf, symShdr.sh_link, sym.st_name);
            reloc.symbol = name != nullptr ? name : "";
            reloc.symbolDefined = sym.st_shndx != SHN_UNDEF;
            reloc.symbolValue = sym.st_value;
        }
        mRelocs[r.offset] = std::move(reloc);
    }
}

// The relative-only format: the addend is the word itself.
void ElfImage::readRelr(void* scnp) {
    Elf_Data* data = elf_getdata(asScn(scnp), nullptr);
    if (data == nullptr || data->d_buf == nullptr) return;
    unsigned relative = mMachine == EM_AARCH64 ? R_AARCH64_RELATIVE : R_X86_64_RELATIVE;
    for (uint64_t address :
         decodeRelr(static_cast<const uint64_t*>(data->d_buf), data->d_size / sizeof(uint64_t))) {
        mRelocs[address] = Reloc{relative, {}, false, 0, 0, false};
    }
}

const Symbol* ElfImage::findExported(const std::string& name) const {
    for (const Symbol& s : mDynamic) {
        if (s.exported && s.name == name) return &s;
    }
    return nullptr;
}

std::vector<std::string> ElfImage::namesAt(uint64_t address) const {
    std::vector<std::string> names;
    auto range = mByAddress.equal_range(address);
    for (auto it = range.first; it != range.second; ++it) names.push_back(it->second);
    return names;
}

bool ElfImage::rawWord(uint64_t address, uint64_t& value) const {
    Elf* elf = asElf(mElf);
    for (Elf_Scn* scn = elf_nextscn(elf, nullptr); scn != nullptr; scn = elf_nextscn(elf, scn)) {
        GElf_Shdr shdr;
        if (gelf_getshdr(scn, &shdr) == nullptr || !(shdr.sh_flags & SHF_ALLOC)) continue;
        if (address < shdr.sh_addr || address + 8 > shdr.sh_addr + shdr.sh_size) continue;
        if (shdr.sh_type == SHT_NOBITS) {
            value = 0;
            return true;
        }
        Elf_Data* data = elf_getdata(scn, nullptr);
        uint64_t offset = address - shdr.sh_addr;
        if (data == nullptr || offset + 8 > data->d_size) return false;
        // Both machines are little-endian, as is every machine this tool builds for.
        std::memcpy(&value, static_cast<const char*>(data->d_buf) + offset, 8);
        return true;
    }
    return false;
}

bool ElfImage::isCode(uint64_t address) const {
    Elf* elf = asElf(mElf);
    for (Elf_Scn* scn = elf_nextscn(elf, nullptr); scn != nullptr; scn = elf_nextscn(elf, scn)) {
        GElf_Shdr shdr;
        if (gelf_getshdr(scn, &shdr) == nullptr || !(shdr.sh_flags & SHF_ALLOC)) continue;
        if (address >= shdr.sh_addr && address < shdr.sh_addr + shdr.sh_size) {
            return (shdr.sh_flags & SHF_EXECINSTR) != 0;
        }
    }
    return false;
}

bool ElfImage::isRelative(unsigned type) const {
    return mMachine == EM_AARCH64 ? type == R_AARCH64_RELATIVE : type == R_X86_64_RELATIVE;
}

bool ElfImage::isAbsolute(unsigned type) const {
    if (mMachine == EM_AARCH64) return type == R_AARCH64_ABS64 || type == R_AARCH64_GLOB_DAT;
    return type == R_X86_64_64 || type == R_X86_64_GLOB_DAT;
}

bool ElfImage::wordAt(uint64_t address, Word& out) const {
    uint64_t stored = 0;
    if (!rawWord(address, stored)) return false;
    out = Word{};
    auto it = mRelocs.find(address);
    if (it == mRelocs.end()) {
        out.kind = Word::Plain;
        out.value = stored;
        return true;
    }
    const Reloc& r = it->second;
    // Without an explicit addend (REL, RELR) the word itself is the addend.
    int64_t addend = r.hasAddend ? r.addend : static_cast<int64_t>(stored);
    if (isRelative(r.type)) {
        out.kind = Word::Address;
        out.value = static_cast<uint64_t>(addend);
    } else if (isAbsolute(r.type)) {
        out.symbol = r.symbol;
        if (r.symbolDefined) {
            out.kind = Word::Address;
            out.value = r.symbolValue + static_cast<uint64_t>(addend);
        } else {
            out.kind = Word::Symbol;
        }
    } else {
        out.kind = Word::Unknown;
        out.relocType = r.type;
    }
    return true;
}

}  // namespace abi_check
