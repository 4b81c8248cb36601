// Times libtiff at the work that vireo-bench times: all rows of a page into one picture in memory,
// or a picture from memory into a file. Not part of the build; scripts/compare-with-libtiff
// compiles it.
//
//   tiff-timing decode FILE REPEAT
//   tiff-timing encode FILE COMPRESSION PREDICTOR REPEAT OUT [ROWS-PER-STRIP]
//
// COMPRESSION: none, huffman, g4, lzw, packbits. Rows per strip: all rows unless given; "default"
// for as many as libtiff's own tools put into one. Prints the median of the seconds taken and the
// bytes of pixels. One run warms up and is not counted.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <tiffio.h>
#include <vector>

namespace {

constexpr std::uint32_t kDefaultRows = 0; ///< Rows per strip that libtiff is asked for.

struct Picture {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t bits = 1;
    std::uint16_t samples = 1;
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
    std::size_t rowBytes = 0;
    std::vector<std::uint8_t> pixels;
};

[[noreturn]] void Fail(const char* what)
{
    std::fprintf(stderr, "tiff-timing: %s\n", what);
    std::exit(1);
}

/// Strips are decoded straight into the picture: libtiff's fastest way, which spares it a copy.
void Decode(const char* file, Picture& picture)
{
    TIFF* const tiff = TIFFOpen(file, "r");
    if (!tiff)
        Fail("cannot open");
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &picture.width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &picture.height);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &picture.bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &picture.samples);
    TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &picture.photometric);
    picture.rowBytes = static_cast<std::size_t>(TIFFScanlineSize(tiff));
    picture.pixels.resize(picture.rowBytes * picture.height);
    std::size_t done = 0;
    const tstrip_t strips = TIFFNumberOfStrips(tiff);
    for (tstrip_t strip = 0; strip < strips; ++strip) {
        const tmsize_t count = TIFFReadEncodedStrip(tiff, strip, picture.pixels.data() + done,
            static_cast<tmsize_t>(picture.pixels.size() - done));
        if (count < 0)
            Fail("cannot read");
        done += static_cast<std::size_t>(count);
    }
    TIFFClose(tiff);
}

std::uint16_t CompressionCode(const std::string& name)
{
    static const std::map<std::string, std::uint16_t> kCodes = {{"none", COMPRESSION_NONE},
        {"huffman", COMPRESSION_CCITTRLE}, {"g4", COMPRESSION_CCITTFAX4}, {"lzw", COMPRESSION_LZW},
        {"packbits", COMPRESSION_PACKBITS}};
    const auto found = kCodes.find(name);
    if (found == kCodes.end())
        Fail("unknown compression");
    return found->second;
}

void Encode(const char* file, Picture& picture, const std::string& compression,
    std::uint16_t predictor, std::uint32_t rowsPerStrip)
{
    TIFF* const tiff = TIFFOpen(file, "w");
    if (!tiff)
        Fail("cannot create");
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, picture.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, picture.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, picture.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, picture.samples);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, picture.photometric);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, CompressionCode(compression));
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP,
        rowsPerStrip == kDefaultRows ? TIFFDefaultStripSize(tiff, 0) : rowsPerStrip);
    if (predictor != 1)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, predictor);
    std::vector<std::uint8_t> row(picture.rowBytes);
    for (std::uint32_t y = 0; y < picture.height; ++y) {
        // The predictor works in the row that it is given.
        std::memcpy(row.data(), picture.pixels.data() + y * picture.rowBytes, picture.rowBytes);
        if (TIFFWriteScanline(tiff, row.data(), y, 0) < 0)
            Fail("cannot write");
    }
    TIFFClose(tiff);
}

void PrintMedian(int repeat, std::size_t bytes, const std::function<void()>& work)
{
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    work();
    for (int i = 0; i < repeat; ++i) {
        const auto start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    if (!times.empty())
        std::printf("%.6f %zu\n", times[times.size() / 2], bytes);
}

} // namespace

int main(int argc, char** argv)
{
    TIFFSetWarningHandler(nullptr);
    const std::string command = argc > 1 ? argv[1] : "";
    Picture picture;
    if (command == "decode" && argc == 4) {
        Decode(argv[2], picture);
        PrintMedian(std::atoi(argv[3]), picture.pixels.size(), [&] { Decode(argv[2], picture); });
    } else if (command == "encode" && (argc == 7 || argc == 8)) {
        Decode(argv[2], picture);
        const auto predictor = static_cast<std::uint16_t>(std::atoi(argv[4]));
        const std::uint32_t rowsPerStrip = argc == 7 ? picture.height
            : std::strcmp(argv[7], "default") == 0   ? kDefaultRows
                                                   : static_cast<std::uint32_t>(std::atoi(argv[7]));
        PrintMedian(std::atoi(argv[5]), picture.pixels.size(),
            [&] { Encode(argv[6], picture, argv[3], predictor, rowsPerStrip); });
    } else {
        Fail("usage: decode FILE REPEAT | encode FILE COMPRESSION PREDICTOR REPEAT OUT [ROWS]");
    }
    return 0;
}
