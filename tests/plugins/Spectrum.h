// Levels of tones and spectra of noise.
#pragma once

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

inline double Decibels(double power) {
    return 10 * std::log10(std::max(power, 1e-40));
}

// The amplitude of a tone, which should make whole periods; `place` is its frequency over the rate.
inline double ToneAmplitude(const std::vector<double>& samples, double place) {
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        sum += samples[i] *
               std::polar(1.0, 2 * std::numbers::pi * std::fmod(place * static_cast<double>(i), 1.0));
    return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

inline double MeanPower(const std::vector<double>& samples) {
    double sum = 0;
    for (const double sample : samples)
        sum += sample * sample;
    return sum / static_cast<double>(samples.size());
}

// The power of noise at 1/256, 2/256... 127/256 of the rate, 1 being white noise of power 1: the mean
// over pieces of 256 samples under a Hann window.
inline std::vector<double> NoiseSpectrum(const std::vector<double>& noise) {
    constexpr std::size_t size = 256;
    constexpr double turn = 2 * std::numbers::pi / size;
    std::vector<double> window(size), spectrum(size / 2 - 1);
    std::vector<std::complex<double>> turns(size);
    double weight = 0;
    for (std::size_t i = 0; i < size; ++i) {
        window[i] = 1 - std::cos(turn * static_cast<double>(i));
        weight += window[i] * window[i];
        turns[i] = std::polar(1.0, turn * static_cast<double>(i));
    }
    const std::size_t pieces = noise.size() / size;
    for (std::size_t piece = 0; piece < pieces; ++piece)
        for (std::size_t bin = 1; bin <= spectrum.size(); ++bin) {
            std::complex<double> sum = 0;
            for (std::size_t i = 0; i < size; ++i)
                sum += noise[piece * size + i] * window[i] * turns[bin * i % size];
            spectrum[bin - 1] += std::norm(sum) / weight / static_cast<double>(pieces);
        }
    return spectrum;
}
