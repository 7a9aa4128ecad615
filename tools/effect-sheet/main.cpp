// effect_sheet FOLDER [OLD.ppm NEW.ppm]: draws every transition effect at 10, 30, 50, 70 and 90 % of its
// steps as FOLDER/<letter>_<percent>.ppm. Without pictures it makes two of its own, 480 x 270.

#include <cmath>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "support/effect_model.h"

namespace {

using support::Picture;

std::uint32_t colour(double red, double green, double blue) {
    const auto part = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
    };
    return part(red) << 16 | part(green) << 8 | part(blue);
}

// A dark sea under an evening sky.
Picture evening(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = static_cast<double>(x) / width;
            const double v = static_cast<double>(y) / height;
            const double sun = std::hypot((u - 0.3) * width / height, v - 0.45) < 0.13 ? 1.0 : 0.0;
            if (v < 0.6) {
                picture.row(y)[x] = colour(0.35 + v + sun, 0.1 + 0.6 * v + 0.6 * sun, 0.4 - 0.3 * v);
            } else {
                const double wave = 0.08 * std::sin(80.0 * v * v + 9.0 * u);
                picture.row(y)[x] = colour(0.15 + wave, 0.08 + wave, 0.25 + wave);
            }
        }
    }
    return picture;
}

// Green hills under a blue sky, with a scale of bright posts that shows any shift.
Picture hills(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = static_cast<double>(x) / width;
            const double v = static_cast<double>(y) / height;
            const double far = 0.55 + 0.08 * std::sin(7.0 * u + 1.0);
            const double near = 0.75 + 0.06 * std::sin(5.0 * u);
            if (v > near) {
                const bool post = std::fmod(u * 10.0, 1.0) < 0.12 && v < near + 0.15;
                picture.row(y)[x] =
                    post ? colour(1.0, 0.95, 0.7) : colour(0.2, 0.65 - 0.3 * (v - near), 0.15);
            } else if (v > far) {
                picture.row(y)[x] = colour(0.3, 0.75, 0.4);
            } else {
                picture.row(y)[x] = colour(0.45 + 0.5 * v, 0.7 + 0.35 * v, 1.0);
            }
        }
    }
    return picture;
}

Picture readPicture(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string magic;
    int width = 0;
    int height = 0;
    int most = 0;
    file >> magic >> width >> height >> most;
    file.get();
    if (!file || magic != "P6" || most != 255 || width <= 0 || height <= 0 || width > 16384 ||
        height > 16384) {
        throw std::runtime_error(path + " is not a binary PPM picture");
    }
    Picture picture(width, height);
    for (std::uint32_t& pixel : picture.pixels) {
        for (int part = 0; part < 3; ++part) {
            pixel = pixel << 8 | static_cast<std::uint32_t>(file.get() & 0xff);
        }
    }
    if (!file) {
        throw std::runtime_error(path + " ends too early");
    }
    return picture;
}

void writePicture(const std::string& path, const Picture& picture) {
    std::string bytes =
        "P6\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n255\n";
    for (const std::uint32_t pixel : picture.pixels) {
        bytes += static_cast<char>(pixel >> 16 & 0xff);
        bytes += static_cast<char>(pixel >> 8 & 0xff);
        bytes += static_cast<char>(pixel & 0xff);
    }
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

void drawEffects(const std::string& folder, const Picture& before, const Picture& after) {
    if (before.width != after.width || before.height != after.height) {
        throw std::runtime_error("the two pictures differ in size");
    }
    for (int index = 0; index < show::kEffectCount; ++index) {
        support::EffectModel model(index, before, after);
        for (const int percent : {10, 30, 50, 70, 90}) {
            model.runTo(std::max(1, model.plan().stepCount * percent / 100));
            const std::string name =
                std::string(1, static_cast<char>('A' + index)) + "_" + std::to_string(percent) + ".ppm";
            // Without steps the new picture is there at once.
            writePicture(folder + "/" + name, model.plan().stepCount > 0 ? model.screen() : after);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::cerr << "usage: effect_sheet FOLDER [OLD.ppm NEW.ppm]\n";
        return 2;
    }
    try {
        const bool given = argc == 4;
        drawEffects(argv[1], given ? readPicture(argv[2]) : evening(480, 270),
                    given ? readPicture(argv[3]) : hills(480, 270));
    } catch (const std::exception& error) {
        std::cerr << "effect_sheet: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
