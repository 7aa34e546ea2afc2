// The job of NistSet is the nonlinear reference sets of data/nist-strd with their models as typed formulas.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace plotkit {

struct TNistSet
{
    std::string Name;
    std::string Formula;  ///< its letters in alphabetical order are the parameters b1, b2 and so on
    std::vector<double> X, Y;
    std::array<std::vector<double>, 2> Starts;
    std::vector<double> Certified;

    /// Correct decimal digits of the worst coefficient, at most the 11 that are certified.
    double Digits(std::span<const double> coefs) const
    {
        double digits = 11;
        for (std::size_t k = 0; k < Certified.size(); ++k) {
            const double error = std::fabs(coefs[k] - Certified[k]) / std::fabs(Certified[k]);
            digits = std::min(digits, std::isfinite(error) ? -std::log10(std::max(error, 1e-300)) : 0);
        }
        return std::max(digits, 0.0);
    }
};

inline TNistSet ReadNistSet(const std::string& folder, const std::string& name, const std::string& formula)
{
    TNistSet set{name, formula, {}, {}, {}, {}};
    std::ifstream file(folder + '/' + name + ".dat");
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        const std::size_t equals = line.find('=');
        double a = 0, b = 0, c = 0;
        if (number > 60 && std::istringstream(line) >> b >> a) {
            set.X.push_back(a);
            set.Y.push_back(b);
        } else if (number > 40 && number < 50 && equals != std::string::npos &&
                   std::istringstream(line.substr(equals + 1)) >> a >> b >> c) {
            set.Starts[0].push_back(a);
            set.Starts[1].push_back(b);
            set.Certified.push_back(c);
        }
    }
    if (set.X.empty() || set.Certified.empty())
        throw std::runtime_error(folder + '/' + name + ".dat: no data");
    return set;
}

/// All sets with one variable.
inline std::vector<TNistSet> NistSets(const std::string& folder)
{
    const std::string peaks = "a*exp(-b*x)+c*exp(-(x-d)^2/e^2)+f*exp(-(x-g)^2/h^2)";
    const std::string decays = "a*exp(-b*x)+c*exp(-d*x)+e*exp(-f*x)";
    const std::string cubics = "(a+b*x+c*x^2+d*x^3)/(1+e*x+f*x^2+g*x^3)";
    const std::string cycles =
        "a+b*cos(2*pi*x/12)+c*sin(2*pi*x/12)+e*cos(2*pi*x/d)+f*sin(2*pi*x/d)+h*cos(2*pi*x/g)"
        "+i*sin(2*pi*x/g)";
    const std::pair<std::string, std::string> models[]{
        {"Misra1a", "a*(1-exp(-b*x))"},
        {"Misra1b", "a*(1-(1+b*x/2)^(-2))"},
        {"Misra1c", "a*(1-(1+2*b*x)^(-0.5))"},
        {"Misra1d", "a*b*x/(1+b*x)"},
        {"Chwirut1", "exp(-a*x)/(b+c*x)"},
        {"Chwirut2", "exp(-a*x)/(b+c*x)"},
        {"Gauss1", peaks},
        {"Gauss2", peaks},
        {"Gauss3", peaks},
        {"Lanczos1", decays},
        {"Lanczos2", decays},
        {"Lanczos3", decays},
        {"DanWood", "a*x^b"},
        {"Kirby2", "(a+b*x+c*x^2)/(1+d*x+e*x^2)"},
        {"Hahn1", cubics},
        {"Thurber", cubics},
        {"MGH17", "a+b*exp(-x*d)+c*exp(-x*e)"},
        {"BoxBOD", "a*(1-exp(-b*x))"},
        {"Rat42", "a/(1+exp(b-c*x))"},
        {"Rat43", "a/(1+exp(b-c*x))^(1/d)"},
        {"MGH10", "a*exp(b/(x+c))"},
        {"Eckerle4", "(a/b)*exp(-0.5*((x-c)/b)^2)"},
        {"Bennett5", "a*(b+x)^(-1/c)"},
        {"MGH09", "a*(x^2+x*b)/(x^2+x*c+d)"},
        {"ENSO", cycles},
        {"Roszman1", "a-b*x-arctan(c/(x-d))/pi"},
    };
    std::vector<TNistSet> sets;
    for (const auto& [name, formula] : models)
        sets.push_back(ReadNistSet(folder, name, formula));
    return sets;
}

}  // namespace plotkit
