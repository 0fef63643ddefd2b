// playerimpl-abi-check: compares what our headers declare about the two closed libraries with
// what the libraries themselves contain, before a device is flashed.
//
//   playerimpl-abi-check libPlayerImpl_hidl.so libtvdisplay.so [--library libplayerimpl_jni.so]
//
// Links: every symbol our library imports from the closed classes must be exported by one of
// the two libraries under the same mangled name. Slots: the proxy's table of virtual operations
// (and the listener's, where the closed library carries it) is read entry by entry through the
// dynamic relocations (plain, Android packed or RELR) and compared with the slot and parameter
// list of every operation our header declares. A slot whose operation has the same name and
// parameters that differ only in spelling the calling convention treats alike is COMPATIBLE,
// not a failure. One line per finding; the last line counts failures and compatible slots.
//
// Exit status: 0 everything matches (compatible slots included); 1 a mismatch; 2 a file could
// not be read; 3 the links match but the proxy's table is not exported, so the slots are
// unchecked.
//
// A hidden option, --decode-packed FILE, prints the relocations of a raw Android packed stream
// (for the tests of the decoder); status 2 when the stream cannot be decoded.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "calling_convention.h"
#include "declared.h"
#include "elf_image.h"
#include "packed_relocations.h"

namespace abi_check {
namespace {

enum Status { kMatch = 0, kMismatch = 1, kUnreadable = 2, kLinksOnly = 3 };

struct Report {
    int failures = 0;
    int compatible = 0;
    bool linksOnly = false;
    void fail(const std::string& line) {
        std::printf("FAIL %s\n", line.c_str());
        ++failures;
    }
    void compatibleSlot(const std::string& line) {
        std::printf("COMPATIBLE %s\n", line.c_str());
        ++compatible;
    }
    void info(const std::string& line) { std::printf("INFO %s\n", line.c_str()); }
};

std::string baseName(const std::string& path) {
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// Where the workstation build puts our library, next to this program's bin/ directory.
std::string defaultLibrary() {
    char exe[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (n <= 0) return "libplayerimpl_jni.so";
    std::string dir(exe, static_cast<size_t>(n));
    dir = dir.substr(0, dir.rfind('/'));
    return dir + "/../lib/libplayerimpl_jni.so";
}

// "vtable for X", "PlayerImpl::connect()" -> the class the symbol belongs to, when it is one
// of the closed classes.
bool belongsToClosedClass(const std::string& demangled, bool& isTypeInfo) {
    static const char* const kSpecial[] = {"vtable for ", "VTT for ", "typeinfo for ",
                                           "typeinfo name for "};
    std::string rest = demangled;
    isTypeInfo = false;
    for (const char* prefix : kSpecial) {
        if (rest.compare(0, std::strlen(prefix), prefix) == 0) {
            isTypeInfo = std::strncmp(prefix, "typeinfo", 8) == 0;
            rest = rest.substr(std::strlen(prefix));
            break;
        }
    }
    for (const std::string& cls : closedClasses()) {
        if (rest == cls || rest.compare(0, cls.size() + 2, cls + "::") == 0) return true;
    }
    return false;
}

// ---- Links -------------------------------------------------------------------------------

void checkLinks(const ElfImage& library, bool libraryGiven,
                const std::vector<const ElfImage*>& closed, Report& report) {
    int imported = 0;
    int found = 0;
    for (const Symbol& sym : library.dynamicSymbols()) {
        if (sym.defined) continue;
        std::string demangled = demangle(sym.name);
        bool isTypeInfo = false;
        if (!belongsToClosedClass(demangled, isTypeInfo)) continue;
        ++imported;
        const ElfImage* from = nullptr;
        for (const ElfImage* image : closed) {
            if (image->findExported(sym.name) != nullptr) from = image;
        }
        if (from != nullptr) {
            ++found;
            continue;
        }
        if (isTypeInfo && !libraryGiven) {
            // The default list is the workstation build's, made with type information; the
            // device build (and usually the vendor's) is made without it and imports none.
            report.info("link " + demangled +
                        ": not exported; the workstation build imports "
                        "it, a device build without type information does not (pass --library "
                        "to check the device build's own imports)");
            continue;
        }
        // What the closed libraries export under the same name, with other parameters.
        std::string qualified, params;
        bool hasParams = splitSignature(demangled, qualified, params);
        std::string instead;
        for (const ElfImage* image : closed) {
            for (const Symbol& other : image->dynamicSymbols()) {
                if (!other.exported) continue;
                std::string otherDemangled = demangle(other.name);
                std::string otherQualified, otherParams;
                bool match = hasParams
                                 ? splitSignature(otherDemangled, otherQualified, otherParams) &&
                                       otherQualified == qualified
                                 : otherDemangled == demangled;
                if (!match) continue;
                instead += (instead.empty() ? "" : "; ") + std::string("library has ") +
                           otherDemangled + " (" + baseName(image->path()) + ", " + other.name +
                           ")";
            }
        }
        if (instead.empty()) instead = "neither library has anything under that name";
        report.fail("link " + demangled + ": not exported by either library (" + sym.name + "); " +
                    instead + (hasParams ? "; our header declares " + params : std::string()));
    }
    report.info("links: " + std::to_string(imported) +
                " symbols imported from the closed "
                "classes by " +
                baseName(library.path()) + ", " + std::to_string(found) +
                " exported by the closed libraries");
}

// ---- Slots -------------------------------------------------------------------------------

// One entry of a table of virtual operations, as the loader will fill it.
struct Entry {
    bool function = false;
    bool pure = false;
    bool empty = false;  // a 0 in the table (a destructor of a class that cannot exist alone)
    bool typeInfo = false;
    uint64_t plainValue = 1;         // the number in a word without relocation
    std::vector<std::string> names;  // demangled, every alias at the address
    std::string problem;             // set when the entry cannot be read
    std::string shown() const {
        if (!problem.empty()) return problem;
        if (pure) return "a pure operation";
        if (empty) return "an empty entry";
        return names.empty() ? std::string("unnamed code") : names.front();
    }
};

bool isTypeInfoName(const std::string& mangled) {
    return mangled.compare(0, 4, "_ZTI") == 0 || mangled.compare(0, 4, "_ZTS") == 0;
}

bool isPureName(const std::string& mangled) {
    return mangled == "__cxa_pure_virtual" || mangled == "__cxa_deleted_virtual";
}

Entry readEntry(const ElfImage& image, const Word& word) {
    Entry e;
    std::vector<std::string> mangled;
    if (!word.symbol.empty()) mangled.push_back(word.symbol);
    switch (word.kind) {
        case Word::Plain:
            e.plainValue = word.value;
            return e;
        case Word::Unknown:
            e.function = true;
            e.problem = "a relocation of type " + std::to_string(word.relocType) +
                        " this tool does not read";
            return e;
        case Word::Symbol:
            e.typeInfo = isTypeInfoName(word.symbol);
            e.function = !e.typeInfo;
            break;
        case Word::Address:
            e.function = image.isCode(word.value);
            e.typeInfo = !e.function;
            // A relocation that names its symbol says which one the table means; a relative
            // one gives only the address, where identical functions may have been folded
            // into one under several names.
            if (word.symbol.empty()) mangled = image.namesAt(word.value);
            break;
    }
    for (const std::string& m : mangled) {
        if (isPureName(m)) e.pure = true;
        e.names.push_back(demangle(m));
    }
    return e;
}

// The primary table: from the first operation to the group of the virtual base.
//
// The table of a class with one virtual base (RefBase) reads: the base's offset, the offset to
// the top, the type information (or 0), the class's own slots; then the group of the virtual
// base: one offset per operation of the base (the destructor pair sharing one), the offset to
// the top, the type information again, and the base's operations. None of the offsets or the
// type information is code. A class that cannot be instantiated may leave its destructor
// pair at 0, which looks like the base's offsets, so the end of the slots is found from the
// end of the table: the base's operations there say how many offsets come before them.
std::vector<Entry> readTable(const ElfImage& image, const Symbol& table, std::string& note) {
    std::vector<Entry> all;
    for (uint64_t offset = 0; offset + 8 <= table.size; offset += 8) {
        Word word;
        if (!image.wordAt(table.value + offset, word)) break;
        all.push_back(readEntry(image, word));
    }
    size_t n = all.size();
    size_t first = 0;
    while (first < n && !all[first].function) ++first;
    size_t runEnd = first;
    while (runEnd < n && all[runEnd].function) ++runEnd;
    size_t end = runEnd;
    if (first > 2 && runEnd < n) {
        // There is a virtual base. Its group ends the table: going back from the end, its
        // operations and the type information are code, type information or 0; the first
        // other number is its offset to the top, and one offset per base operation but one
        // comes before that.
        size_t ott = n;
        while (ott > runEnd &&
               (all[ott - 1].function || all[ott - 1].typeInfo || all[ott - 1].plainValue == 0)) {
            --ott;
        }
        bool placed = false;
        if (ott > runEnd) {
            --ott;
            size_t baseOperations = n - (ott + 2);
            size_t offsets = baseOperations > 0 ? baseOperations - 1 : 0;
            if (ott >= runEnd + offsets) {
                end = ott - offsets;
                placed = true;
            }
        }
        if (!placed) {
            note =
                "the group of the virtual base could not be told apart; the slots end at "
                "the first entry that is not code";
        }
    }
    for (size_t i = runEnd; i < end; ++i) all[i].empty = true;
    return std::vector<Entry>(all.begin() + static_cast<long>(first),
                              all.begin() + static_cast<long>(end));
}

// Does the entry hold the operation: same unqualified name and the same parameter list, or one
// the calling convention sees as the same (Compatible). The class is not compared, so an
// operation the proxy inherits from a base class still matches.
enum class Fit { Same, Compatible, OtherParams, Other };
Fit fit(const Entry& entry, const DeclaredOperation& op, const std::set<std::string>& intEnums,
        std::string& closest) {
    closest = entry.shown();
    Fit best = Fit::Other;
    for (const std::string& name : entry.names) {
        std::string qualified, params;
        if (!splitSignature(name, qualified, params) || unqualified(qualified) != op.name) continue;
        if (params == op.params) return Fit::Same;
        Fit here = sameCall(params, op.params, intEnums) ? Fit::Compatible : Fit::OtherParams;
        if (best == Fit::Other || here == Fit::Compatible) {
            best = here;
            closest = name;
        }
    }
    return best;
}

void checkTable(const DeclaredTable& declared, const std::vector<const ElfImage*>& closed,
                Report& report) {
    const ElfImage* owner = nullptr;
    const Symbol* table = nullptr;
    for (const ElfImage* image : closed) {
        if (const Symbol* s = image->findExported(declared.tableSymbol)) {
            owner = image;
            table = s;
            break;
        }
    }
    const std::string& cls = declared.cls;
    if (table == nullptr) {
        if (declared.implementedByUs) {
            report.info(cls + ": neither library exports its table (" + declared.tableSymbol +
                        "); nothing to compare");
        } else {
            std::printf(
                "LINKS ONLY %s: neither library exports its table of virtual operations "
                "(%s), so its slots are not checked; only links are\n",
                cls.c_str(), declared.tableSymbol.c_str());
            report.linksOnly = true;
        }
        return;
    }
    std::string note;
    std::vector<Entry> entries = readTable(*owner, *table, note);
    if (!note.empty()) report.info(cls + ": " + note);
    const long have = static_cast<long>(entries.size());
    std::string where = cls + " (" + baseName(owner->path()) + ")";
    if (have != declared.length) {
        report.fail("table " + where + ": the library's table has " + std::to_string(have) +
                    " slots, our header declares " + std::to_string(declared.length));
    }

    std::map<long, const DeclaredOperation*> bySlot;
    for (const DeclaredOperation& op : declared.operations) {
        if (op.slot != op.serviceSlot) {
            report.fail("slot " + cls + "[" + std::to_string(op.slot) + "]: our header puts " +
                        op.name + " at slot " + std::to_string(op.slot) +
                        ", the service's order at " + std::to_string(op.serviceSlot));
        }
        bySlot[op.slot] = &op;
    }

    int pureOperations = 0;
    int named = 0;
    for (long slot = 0; slot < std::min(have, declared.length); ++slot) {
        const Entry& entry = entries[static_cast<size_t>(slot)];
        std::string at = "slot " + cls + "[" + std::to_string(slot) + "]";
        auto it = bySlot.find(slot);
        if (it == bySlot.end()) {
            report.info(at + " (a placeholder in our header, never called): library has " +
                        entry.shown());
            continue;
        }
        const DeclaredOperation& op = *it->second;
        std::string ours = op.name + op.params;
        ++named;
        if (!entry.problem.empty()) {
            report.fail(at + ": " + entry.problem + "; our header declares " + ours);
            continue;
        }
        if (entry.pure || entry.empty) {
            // A pure slot says nothing about which operation sits there.
            if (declared.implementedByUs) {
                ++pureOperations;
            } else {
                report.fail(at + ": the library has " + entry.shown() +
                            " here, which cannot be matched to our header's " + ours);
            }
            continue;
        }
        std::string closest;
        switch (fit(entry, op, declared.intEnums, closest)) {
            case Fit::Same:
                break;
            case Fit::Compatible:
                report.compatibleSlot(at + ": library has " + closest + "; our header declares " +
                                      ours);
                break;
            case Fit::OtherParams:
                report.fail(at + ": library has " + closest + "; our header declares " + ours +
                            " (other parameters)");
                break;
            case Fit::Other:
                report.fail(at + ": library has " + closest + "; our header declares " + ours +
                            " here");
                break;
        }
    }
    for (long slot = have; slot < declared.length; ++slot) {
        auto it = bySlot.find(slot);
        if (it != bySlot.end()) {
            report.fail("slot " + cls + "[" + std::to_string(slot) +
                        "]: past the end of the "
                        "library's table; our header declares " +
                        it->second->name + it->second->params);
        }
    }
    for (long slot = declared.length; slot < have; ++slot) {
        report.info("slot " + cls + "[" + std::to_string(slot) +
                    "] (past our header's table): "
                    "library has " +
                    entries[static_cast<size_t>(slot)].shown());
    }
    if (pureOperations > 0) {
        report.info(where + ": " + std::to_string(pureOperations) + " of " + std::to_string(named) +
                    " named slots are pure or empty in the library (an interface "
                    "this library implements); for those only the slot count is compared");
    }
    report.info("slots " + where + ": " + std::to_string(have) + " in the library, " +
                std::to_string(declared.length) + " in our header");
}

// --decode-packed FILE: one line per relocation of the raw stream in FILE.
int decodePackedFile(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) {
        std::printf("ERROR %s: cannot open: %s\n", path, std::strerror(errno));
        return kUnreadable;
    }
    std::vector<uint8_t> bytes;
    uint8_t buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;) {
        bytes.insert(bytes.end(), buffer, buffer + n);
    }
    std::fclose(file);
    std::vector<RawRelocation> relocations;
    std::string error;
    if (!decodeAndroidPacked(bytes.data(), bytes.size(), relocations, error)) {
        std::printf("ERROR %s: %s\n", path, error.c_str());
        return kUnreadable;
    }
    for (const RawRelocation& r : relocations) {
        std::printf("offset 0x%llx type %u symbol %u addend %lld\n",
                    static_cast<unsigned long long>(r.offset), static_cast<unsigned>(r.info),
                    static_cast<unsigned>(r.info >> 32), static_cast<long long>(r.addend));
    }
    std::printf("%zu relocations\n", relocations.size());
    return kMatch;
}

int run(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--decode-packed") == 0) return decodePackedFile(argv[2]);
    std::vector<std::string> closedPaths;
    std::string libraryPath;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--library" && i + 1 < argc) {
            libraryPath = argv[++i];
        } else if (arg == "-h" || arg == "--help" || arg.compare(0, 2, "--") == 0) {
            closedPaths.clear();
            break;
        } else {
            closedPaths.push_back(arg);
        }
    }
    if (closedPaths.size() != 2) {
        std::fprintf(stderr,
                     "usage: playerimpl-abi-check libPlayerImpl_hidl.so libtvdisplay.so "
                     "[--library libplayerimpl_jni.so]\n");
        return kUnreadable;
    }
    bool libraryGiven = !libraryPath.empty();
    if (!libraryGiven) libraryPath = defaultLibrary();

    std::vector<std::unique_ptr<ElfImage>> images;
    for (const std::string& path : closedPaths) images.push_back(std::make_unique<ElfImage>(path));
    ElfImage library(libraryPath);
    bool unreadable = false;
    for (const ElfImage* image : {images[0].get(), images[1].get(), &library}) {
        if (!image->ok()) {
            std::printf("ERROR %s: %s\n", image->path().c_str(), image->error().c_str());
            unreadable = true;
        }
    }
    if (unreadable) return kUnreadable;

    Report report;
    std::vector<const ElfImage*> closed = {images[0].get(), images[1].get()};
    for (const ElfImage* image : closed) {
        report.info(baseName(image->path()) + ": " + image->machineName() + " shared library");
    }
    report.info(baseName(library.path()) + ": " + library.machineName() + " shared library" +
                (libraryGiven ? "" : " (the workstation build's, for its list of imports)"));
    if (std::strcmp(closed[0]->machineName(), closed[1]->machineName()) != 0) {
        report.fail("the two closed libraries are for different machines");
    }

    checkLinks(library, libraryGiven, closed, report);
    checkTable(declaredProxy(), closed, report);
    checkTable(declaredListener(), closed, report);

    std::string counts = std::to_string(report.failures) +
                         (report.failures == 1 ? " failure, " : " failures, ") +
                         std::to_string(report.compatible) +
                         (report.compatible == 1 ? " compatible slot" : " compatible slots");
    if (report.failures > 0) {
        std::printf("FAILED: %s\n", counts.c_str());
        return kMismatch;
    }
    if (report.linksOnly) {
        std::printf("LINKS ONLY: %s; the links match, the slot order was not checked\n",
                    counts.c_str());
        return kLinksOnly;
    }
    std::printf("OK: %s; links and slots match our headers%s\n", counts.c_str(),
                report.compatible > 0 ? " as the calling convention sees them" : "");
    return kMatch;
}

}  // namespace
}  // namespace abi_check

int main(int argc, char** argv) { return abi_check::run(argc, argv); }
