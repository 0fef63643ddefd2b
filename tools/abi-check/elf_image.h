// Read-only view of one ELF64 little-endian shared library (AArch64 or x86-64), through
// elfutils' libelf: its dynamic symbols, its symbol tables by address, and the 64-bit words of
// its data with the dynamic relocation that fills each one at load time, whichever form the
// relocations take: plain REL/RELA tables, Android's packed ones, or RELR.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace abi_check {

struct Symbol {
    std::string name;
    uint64_t value = 0;
    uint64_t size = 0;
    bool defined = false;
    bool exported = false;  // defined, global or weak, default or protected visibility
    bool function = false;
};

// What a word of the library holds once the loader has relocated it.
struct Word {
    enum Kind {
        Plain,    // no relocation: the stored number (an offset, or a null pointer)
        Address,  // an address inside the library (relative relocation, or a defined symbol)
        Symbol,   // a symbol the library imports (or a defined one it can be preempted on)
        Unknown,  // a relocation this reader does not know
    };
    Kind kind = Plain;
    uint64_t value = 0;      // Plain: the number; Address: the address
    std::string symbol;      // Symbol (and Address when the relocation names a symbol)
    unsigned relocType = 0;  // Unknown: the relocation type
};

class ElfImage {
public:
    // Opens the file; on failure, error() says why and nothing else is valid.
    explicit ElfImage(const std::string& path);
    ~ElfImage();
    ElfImage(const ElfImage&) = delete;
    ElfImage& operator=(const ElfImage&) = delete;

    const std::string& path() const { return mPath; }
    const std::string& error() const { return mError; }
    bool ok() const { return mError.empty(); }
    const char* machineName() const;  // "AArch64" or "x86-64"

    // The dynamic symbol table (what the loader sees).
    const std::vector<Symbol>& dynamicSymbols() const { return mDynamic; }
    const Symbol* findExported(const std::string& name) const;
    // Every defined symbol (dynamic and, where not stripped, the full table) at an address.
    std::vector<std::string> namesAt(uint64_t address) const;

    // True when the address lies in an executable section (code, not data such as type
    // information).
    bool isCode(uint64_t address) const;

    // The relocated word at a virtual address, false when the address is outside the file's
    // loaded data.
    bool wordAt(uint64_t address, Word& out) const;

private:
    struct Reloc {
        unsigned type;
        std::string symbol;  // empty for relative relocations
        bool symbolDefined;
        uint64_t symbolValue;
        int64_t addend;
        bool hasAddend;
    };
    void load();
    void readSymbols(void* scn, bool dynamic);
    void readRelocations(void* scn);
    void readRelr(void* scn);
    bool rawWord(uint64_t address, uint64_t& value) const;
    bool isRelative(unsigned type) const;
    bool isAbsolute(unsigned type) const;

    std::string mPath;
    std::string mError;
    int mFd = -1;
    void* mElf = nullptr;
    unsigned mMachine = 0;
    size_t mShstrndx = 0;  // the section holding the sections' names
    std::vector<Symbol> mDynamic;
    std::multimap<uint64_t, std::string> mByAddress;
    std::map<uint64_t, Reloc> mRelocs;
};

}  // namespace abi_check
