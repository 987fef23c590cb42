#include "lab/Scene.h"

#include "lab/Rows.h"
#include "lab/Tones.h"

#include <OstrelLib/Types.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace Ostrel::Gallery {

namespace {

struct Vector {
    float x, y, z;

    friend constexpr Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Vector operator*(Vector a, float factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
};

constexpr float dot(Vector a, Vector b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Vector cross(Vector a, Vector b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector normalize(Vector v) {
    return v * (1.0F / std::sqrt(dot(v, v)));
}

constexpr Vector reflect(Vector direction, Vector normal) {
    return direction - normal * (2.0F * dot(direction, normal));
}

struct Ray {
    Vector origin;
    Vector direction; ///< of length 1
};

enum class Material { ROUGH, MIRROR, GLASS };

struct Sphere {
    Vector centre;
    float radius;
    Material material;
    Rgb colour; ///< the share of the light that it gives back, or lets through
};

constexpr std::array SPHERES{
    Sphere{{-1.25F, 1.0F, 0.55F}, 1.0F, Material::MIRROR, {0.95F, 0.93F, 0.88F}},
    Sphere{{0.75F, 0.8F, -0.35F}, 0.8F, Material::GLASS, {0.96F, 0.98F, 0.97F}},
    Sphere{{1.9F, 0.65F, 1.75F}, 0.65F, Material::ROUGH, {0.75F, 0.22F, 0.12F}},
    Sphere{{-0.45F, 0.3F, -1.25F}, 0.3F, Material::ROUGH, {0.85F, 0.62F, 0.14F}},
    Sphere{{-1.9F, 0.35F, -1.0F}, 0.35F, Material::ROUGH, {0.16F, 0.42F, 0.72F}},
    Sphere{{0.25F, 0.25F, 1.9F}, 0.25F, Material::ROUGH, {0.25F, 0.6F, 0.25F}},
    Sphere{{0.1F, 0.2F, -2.0F}, 0.2F, Material::MIRROR, {0.95F, 0.7F, 0.45F}},
    Sphere{{1.75F, 0.28F, -1.35F}, 0.28F, Material::ROUGH, {0.8F, 0.8F, 0.8F}},
    Sphere{{-3.2F, 0.6F, 2.8F}, 0.6F, Material::ROUGH, {0.5F, 0.3F, 0.65F}},
};

constexpr const Sphere* PAINTED_SPHERE = &SPHERES[3]; // its colour is the user's

constexpr Rgb LIGHT_TILE{0.62F, 0.6F, 0.56F};
constexpr Rgb DARK_TILE{0.16F, 0.17F, 0.19F};
constexpr float TILES_END = DEPTH_END; ///< the distance from which on they are too small to tell apart

// The sky, and the sun in it: a disc of two degrees.
constexpr Rgb HAZE{0.42F, 0.39F, 0.2F}; ///< what the horizon has more than the zenith, under the usual sky
constexpr Rgb SUN{980.0F, 850.0F, 650.0F};
constexpr float SUN_COSINE = 0.9994F;
constexpr float SUN_SOLID_ANGLE = 2.0F * std::numbers::pi_v<float> * (1.0F - SUN_COSINE);
const Vector SUN_DIRECTION = normalize({-0.55F, 0.75F, -0.6F});

// The camera.
constexpr Vector EYE{0.4F, 1.75F, -6.2F};
constexpr Vector TARGET{0.1F, 0.62F, 0.0F};
constexpr float HALF_HEIGHT = 0.37F; ///< of the picture, at distance 1

constexpr float GLASS_INDEX = 1.5F;
constexpr float GLASS_SHADOW = 0.75F; ///< the share of the sun's light behind glass
constexpr float BRIGHTEST_SKY = 100.0F;
constexpr int MOST_SURFACES = 10;
constexpr float CLEARANCE = 0.0005F; ///< from the surface that a ray leaves

/// Where a ray meets a surface.
struct Hit {
    float distance = std::numeric_limits<float>::infinity();
    Vector point{};
    Vector normal{}; ///< outward
    Material material = Material::ROUGH;
    Rgb colour;
};

/// The distance along the ray to the sphere's surface, from `CLEARANCE` on; infinite if it misses.
float getDistance(const Sphere& sphere, const Ray& ray) {
    const Vector toCentre = sphere.centre - ray.origin;
    const float along = dot(toCentre, ray.direction);
    const Vector aside = toCentre - ray.direction * along; // exact enough where the squares of both would not be
    const float half = sphere.radius * sphere.radius - dot(aside, aside);
    if (half < 0.0F) {
        return std::numeric_limits<float>::infinity();
    }
    const float root = std::sqrt(half);
    const float near = along - root;
    const float far = along + root;
    return near > CLEARANCE ? near : (far > CLEARANCE ? far : std::numeric_limits<float>::infinity());
}

Optional<Hit> intersect(const Ray& ray, const SceneColors& colors) {
    Hit hit;
    const Sphere* sphere = nullptr;
    for (const Sphere& candidate : SPHERES) {
        const float distance = getDistance(candidate, ray);
        if (distance < hit.distance) {
            hit.distance = distance;
            sphere = &candidate;
        }
    }
    const float toGround = ray.direction.y < 0.0F ? -ray.origin.y / ray.direction.y : 0.0F;
    if (toGround > CLEARANCE && toGround < hit.distance) {
        hit.distance = toGround;
        hit.point = ray.origin + ray.direction * toGround;
        hit.normal = {0.0F, 1.0F, 0.0F};
        const bool isLight = std::fmod(std::floor(hit.point.x) + std::floor(hit.point.z), 2.0F) == 0.0F;
        const float blur = 0.5F * std::min(toGround / TILES_END, 1.0F);
        hit.colour = (isLight ? LIGHT_TILE : DARK_TILE) * (1.0F - blur) + (isLight ? DARK_TILE : LIGHT_TILE) * blur;
        return hit;
    }
    if (sphere == nullptr) {
        return {};
    }
    hit.point = ray.origin + ray.direction * hit.distance;
    hit.normal = (hit.point - sphere->centre) * (1.0F / sphere->radius);
    hit.material = sphere->material;
    hit.colour = sphere == PAINTED_SPHERE ? colors.sphere : sphere->colour;
    return hit;
}

/// A direction in a cone about `axis`: `cosine` and `turn` (0 to 1) say where.
Vector turnFrom(Vector axis, float cosine, float turn) {
    const Vector side = normalize(cross(std::abs(axis.x) > 0.7F ? Vector{0, 1, 0} : Vector{1, 0, 0}, axis));
    const Vector other = cross(axis, side);
    const float sine = std::sqrt(std::max(0.0F, 1.0F - cosine * cosine));
    const float angle = 2.0F * std::numbers::pi_v<float> * turn;
    return axis * cosine + side * (sine * std::cos(angle)) + other * (sine * std::sin(angle));
}

Rgb getSky(Vector direction, const Rgb& zenith, bool withSun) {
    if (withSun && dot(direction, SUN_DIRECTION) > SUN_COSINE) {
        return SUN;
    }
    const float height = std::sqrt(std::max(direction.y, 0.0F));
    const Rgb haze = HAZE * (getLuminance(zenith) / getLuminance(SceneColors().sky));
    return zenith + haze * (1.0F - height);
}

/// The sun's light on a rough surface, which chance would find too seldom: from a random place of the disc.
Rgb getSunlight(const Hit& hit, Random& random) {
    const float cosine = 1.0F - (1.0F - SUN_COSINE) * random.next();
    const Vector direction = turnFrom(SUN_DIRECTION, cosine, random.next());
    const float slant = dot(direction, hit.normal);
    if (slant <= 0.0F) {
        return {0.0F, 0.0F, 0.0F};
    }
    float share = slant * SUN_SOLID_ANGLE / std::numbers::pi_v<float>;
    const Ray ray{hit.point + hit.normal * CLEARANCE, direction};
    for (const Sphere& sphere : SPHERES) {
        if (getDistance(sphere, ray) < std::numeric_limits<float>::infinity()) {
            share *= sphere.material == Material::GLASS ? GLASS_SHADOW : 0.0F;
        }
    }
    return SUN * share;
}

/// On through glass or back from it, as chance has it: by the reflectance of C. Schlick, 1994.
Vector passGlass(Vector direction, Vector outward, Random& random) {
    const bool isEntering = dot(direction, outward) < 0.0F;
    const Vector normal = isEntering ? outward : outward * -1.0F;
    const float ratio = isEntering ? 1.0F / GLASS_INDEX : GLASS_INDEX;
    const float cosine = -dot(direction, normal);
    const float squaredSine = ratio * ratio * (1.0F - cosine * cosine);
    if (squaredSine >= 1.0F) {
        return reflect(direction, normal);
    }
    const float inner = std::sqrt(1.0F - squaredSine);
    constexpr float HEAD_ON =
        (GLASS_INDEX - 1.0F) * (GLASS_INDEX - 1.0F) / ((GLASS_INDEX + 1.0F) * (GLASS_INDEX + 1.0F));
    const float outside = 1.0F - (isEntering ? cosine : inner);
    const float reflectance = HEAD_ON + (1.0F - HEAD_ON) * outside * outside * outside * outside * outside;
    return random.next() < reflectance ? reflect(direction, normal)
                                       : direction * ratio + normal * (ratio * cosine - inner);
}

/// Through a place of a pixel, both coordinates from 0 to 1.
Ray getCameraRay(Pixel pixel, Pixel pictureSize, float insideX, float insideY) {
    const auto height = static_cast<float>(pictureSize.y);
    const float x = ((static_cast<float>(pixel.x) + insideX) * 2.0F - static_cast<float>(pictureSize.x)) / height;
    const float y = (height - (static_cast<float>(pixel.y) + insideY) * 2.0F) / height;
    const Vector forward = normalize(TARGET - EYE);
    const Vector right = normalize(cross({0.0F, 1.0F, 0.0F}, forward));
    return {EYE, normalize(forward + right * (x * HALF_HEIGHT) + cross(forward, right) * (y * HALF_HEIGHT))};
}

Rgb trace(Ray ray, const SceneColors& colors, Random& random) {
    Rgb light{0.0F, 0.0F, 0.0F};
    Rgb weight{1.0F, 1.0F, 1.0F};
    float alpha = 1.0F;
    bool seesSun = true; // behind a rough surface the sun has been counted already
    for (int surface = 0; surface < MOST_SURFACES; ++surface) {
        const Optional<Hit> hit = intersect(ray, colors);
        if (!hit) {
            light = light + weight * getSky(ray.direction, colors.sky, seesSun);
            alpha = surface == 0 ? 0.0F : 1.0F;
            break;
        }
        weight = weight * hit->colour;
        ray.origin = hit->point;
        switch (hit->material) {
        case Material::ROUGH: {
            light = light + weight * getSunlight(*hit, random);
            // Directions by the cosine to the normal, as a rough surface weighs them.
            const float cosine = std::sqrt(random.next());
            ray.direction = normalize(turnFrom(hit->normal, cosine, random.next()));
            ray.origin = ray.origin + hit->normal * CLEARANCE;
            seesSun = false;
            break;
        }
        case Material::MIRROR:
            ray.direction = reflect(ray.direction, hit->normal);
            break;
        case Material::GLASS:
            ray.direction = normalize(passGlass(ray.direction, hit->normal, random));
            break;
        }
    }
    light.alpha = alpha;
    return light;
}

} // namespace

Random::Random(std::uint64_t seed)
    : _state(seed) {
    // Neighbouring seeds part.
    for (int i = 0; i < 2; ++i) {
        _state ^= _state >> 31U;
        _state *= 0x9E3779B97F4A7C15ULL;
    }
}

std::uint32_t Random::nextBits() {
    const std::uint64_t before = _state;
    _state = before * 6364136223846793005ULL + 1442695040888963407ULL;
    const auto mixed = static_cast<std::uint32_t>(((before >> 18U) ^ before) >> 27U);
    const auto turn = static_cast<unsigned>(before >> 59U);
    return (mixed >> turn) | (mixed << ((32U - turn) & 31U));
}

float Random::next() {
    return static_cast<float>(nextBits() >> 8U) * 0x1p-24F;
}

SceneColors getSceneColors(const Rgb& shownSky, const Rgb& shownSphere) {
    const auto limit = [](const Rgb& color, float most) {
        const auto keep = [most](float channel) { return std::min(std::max(0.0F, channel), most); }; // NaN becomes 0
        return Rgb{keep(color.red), keep(color.green), keep(color.blue)};
    };
    return {limit(decodeSrgb(shownSky), BRIGHTEST_SKY), limit(decodeSrgb(shownSphere), 1.0F)};
}

Rgb traceScene(Pixel pixel, Pixel pictureSize, const SceneColors& colors, Random& random) {
    const float x = random.next();
    const float y = random.next();
    return trace(getCameraRay(pixel, pictureSize, x, y), colors, random);
}

BitmapImpl<Rgb> renderDepth(Pixel pictureSize) {
    BitmapImpl<Rgb> depth(pictureSize.x, pictureSize.y);
    forEachRow(pictureSize.y, 0, {}, [&](int y) {
        for (int x = 0; x < pictureSize.x; ++x) {
            const Optional<Hit> hit = intersect(getCameraRay({x, y}, pictureSize, 0.5F, 0.5F), {});
            const float distance =
                hit && hit->distance <= DEPTH_END ? hit->distance : std::numeric_limits<float>::infinity();
            depth(x, y) = {distance, distance, distance};
        }
    });
    return depth;
}

} // namespace Ostrel::Gallery
