"""Lines of the table: what was measured, and what is worked out from it."""
import dataclasses
import statistics

OURS = "ours"
PARTS = 5  # of the rounds, whose medians show how steady a line is


@dataclasses.dataclass
class Line:
    title: str
    samples: dict                # {name: values of the rounds, in the same order}
    unit: str = "ns"
    floor: str = ""              # the name of what no program can do without
    wanted: dict = dataclasses.field(default_factory=dict)  # {name: the ratio to it, at most}
    most: float = 0              # of ours itself; 0 for no bound
    quartiles: tuple = ()        # where only these of the ratio are known

    def median(self, name=OURS):
        return statistics.median(self.samples[name])

    def peers(self):
        return [name for name in self.samples if name not in (OURS, self.floor)]

    def best_peer(self):
        return min(self.peers(), key=self.median, default=None)

    def ratios(self, name):
        return [ours / other for ours, other in zip(self.samples[OURS], self.samples[name])]

    def ratio(self, name):
        """Of the same rounds, so that what disturbs both disturbs it least."""
        return self.quartiles[1] if self.quartiles else statistics.median(self.ratios(name))

    def spread(self):
        """How far the ratio's medians of five parts of the rounds lie apart, as a share of it."""
        if self.quartiles:
            return (self.quartiles[2] - self.quartiles[0]) / self.quartiles[1]
        others = [name for name in (self.best_peer(), self.floor) if name in self.samples]
        return max((spread(self.ratios(name)) for name in others), default=0)

    def faults(self):
        """What is wanted and not reached."""
        for name, bound in self.wanted.items():
            if name in self.samples and self.ratio(name) > bound:
                yield f"{self.title}: {self.ratio(name):.2f} of {name}, wanted {bound:g}"
        if self.most and self.median() > self.most:
            yield f"{self.title}: {value(self.median(), self.unit)}, wanted {value(self.most, self.unit)}"


def spread(values):
    size = len(values) // PARTS
    if size == 0:
        return 0
    medians = [statistics.median(values[part * size:(part + 1) * size]) for part in range(PARTS)]
    return (max(medians) - min(medians)) / statistics.median(values)


def value(number, unit):
    if unit != "ns":
        return f"{number:g} {unit}"
    for unit, size in (("ms", 1e6), ("µs", 1e3), ("ns", 1)):
        if number >= size or size == 1:
            return f"{number / size:.3g} {unit}"
    return ""
