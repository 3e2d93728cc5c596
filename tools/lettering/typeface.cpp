#include "typeface.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

#include <memory>

namespace grub {

namespace {

struct LibraryCloser {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceCloser {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

/// An open font file.
class FontFile {
public:
    explicit FontFile(const std::string& path) {
        FT_Library library = nullptr;
        if (FT_Init_FreeType(&library) != 0) return;
        library_.reset(library);
        FT_Face face = nullptr;
        if (FT_New_Face(library, path.c_str(), 0, &face) != 0) return;
        face_.reset(face);
    }

    /// Null when the file is missing, is no font, or has no outlines.
    FT_Face face() const { return face_ && FT_IS_SCALABLE(face_.get()) ? face_.get() : nullptr; }

private:
    std::unique_ptr<FT_LibraryRec_, LibraryCloser> library_;
    std::unique_ptr<FT_FaceRec_, FaceCloser> face_;  // closed before the library
};

/// Takes the steps of an outline in font units, y up, and appends them in ems, y down.
struct OutlineReader {
    VectorPath& path;
    double scale;
    Point pen = {};
    bool open = false;

    Point at(const FT_Vector* v) const {
        return {static_cast<double>(v->x) * scale, -static_cast<double>(v->y) * scale};
    }
    void end() {
        if (open) path.close();
        open = false;
    }

    static OutlineReader& self(void* user) { return *static_cast<OutlineReader*>(user); }
    static int move(const FT_Vector* to, void* user) {
        OutlineReader& reader = self(user);
        reader.end();
        reader.open = true;
        reader.pen = reader.at(to);
        reader.path.moveTo(reader.pen);
        return 0;
    }
    static int line(const FT_Vector* to, void* user) {
        OutlineReader& reader = self(user);
        reader.pen = reader.at(to);
        reader.path.lineTo(reader.pen);
        return 0;
    }
    static int conic(const FT_Vector* handle, const FT_Vector* to, void* user) {
        OutlineReader& reader = self(user);
        const Point between = reader.at(handle);
        const Point end = reader.at(to);
        reader.path.curveTo(mix(reader.pen, between, 2.0 / 3), mix(end, between, 2.0 / 3), end);
        reader.pen = end;
        return 0;
    }
    static int cubic(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user) {
        OutlineReader& reader = self(user);
        reader.pen = reader.at(to);
        reader.path.curveTo(reader.at(first), reader.at(second), reader.pen);
        return 0;
    }
};

bool readGlyph(FT_Face face, FT_UInt index, GlyphOutline& glyph) {
    if (FT_Load_Glyph(face, index, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING) != 0) return false;
    if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    FT_Outline& outline = face->glyph->outline;
    const double scale = 1.0 / face->units_per_EM;
    OutlineReader reader{glyph.outline, scale};
    const FT_Outline_Funcs steps{
        OutlineReader::move, OutlineReader::line, OutlineReader::conic, OutlineReader::cubic, 0, 0};
    if (FT_Outline_Decompose(&outline, &steps, &reader) != 0) return false;
    reader.end();
    glyph.advance = static_cast<double>(face->glyph->metrics.horiAdvance) * scale;
    FT_BBox box{};
    if (outline.n_points == 0 || FT_Outline_Get_BBox(&outline, &box) != 0) return true;
    glyph.left = static_cast<double>(box.xMin) * scale;
    glyph.right = static_cast<double>(box.xMax) * scale;
    glyph.top = -static_cast<double>(box.yMax) * scale;
    glyph.bottom = -static_cast<double>(box.yMin) * scale;
    return true;
}

bool held(char code) { return code >= kFirstCode && code <= kLastCode; }
std::size_t placeOf(char code) { return static_cast<std::size_t>(code - kFirstCode); }
FT_UInt indexOf(FT_Face face, std::size_t place) { return FT_Get_Char_Index(face, place + kFirstCode); }

}  // namespace

Typeface::Typeface(const std::filesystem::path& file) {
    const FontFile font(file.string());
    FT_Face face = font.face();
    if (face == nullptr) {
        fault_ = file.string() + ": wanted a font with outlines";
        return;
    }
    const double scale = 1.0 / face->units_per_EM;
    ascent_ = face->ascender * scale;
    descent_ = -face->descender * scale;
    for (std::size_t place = 0; place < kCodes; ++place) {
        const FT_UInt index = indexOf(face, place);
        Entry& entry = entries_[place];
        entry.present = index != 0 && readGlyph(face, index, entry.glyph);
        for (std::size_t next = 0; entry.present && next < kCodes; ++next) {
            FT_Vector by{};
            if (FT_Get_Kerning(face, index, indexOf(face, next), FT_KERNING_UNSCALED, &by) != 0) continue;
            entry.kerning[next] = static_cast<float>(static_cast<double>(by.x) * scale);
        }
    }
}

const GlyphOutline* Typeface::glyph(char code) const {
    if (!held(code)) return nullptr;
    const Entry& entry = entries_[placeOf(code)];
    return entry.present ? &entry.glyph : nullptr;
}

double Typeface::kerning(char left, char right) const {
    return held(left) && held(right) ? entries_[placeOf(left)].kerning[placeOf(right)] : 0;
}

double Typeface::heightOf(char code) const {
    const GlyphOutline* found = glyph(code);
    return found == nullptr ? 0 : -found->top;
}

const Typeface& typeface(Face face) {
    static const Typeface display(GRUB_DISPLAY_FONT);
    static const Typeface body(GRUB_BODY_FONT);
    return face == Face::Display ? display : body;
}

}  // namespace grub
