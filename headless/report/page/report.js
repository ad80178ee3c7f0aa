"use strict";
(() => {
    const data = JSON.parse(document.getElementById("data").textContent);
    const charts = [];

    // The colours are those of the page, in the light, in the dark and on paper.
    const colour = name => getComputedStyle(document.documentElement).getPropertyValue("--" + name).trim();

    const points = (x, y) => x.map((value, index) => ({ x: value, y: y[index] }));

    // A line is told by its dashes too, not only by its colour.
    const line = (label, x, y, colourName, dashes) => ({
        label, data: points(x, y), colourName, borderDash: dashes, borderWidth: 2, pointRadius: 0, pointHitRadius: 8,
        spanGaps: true
    });

    // The outline of the bars: a step at each edge, and down to zero at both ends.
    const bars = (label, edges, densities) => {
        const outline = [{ x: edges[0], y: 0 }];
        densities.forEach((density, bin) => outline.push({ x: edges[bin], y: density }, { x: edges[bin + 1], y: density }));
        outline.push({ x: edges[edges.length - 1], y: 0 });
        return { label, data: outline, colourName: "first", fillName: "fill", fill: "origin", borderWidth: 1,
            pointRadius: 0, pointHitRadius: 8 };
    };

    const axis = (title, more) => ({ type: "linear", title: { display: true, text: title }, ...more });

    const draw = (id, datasets, x, y) => {
        const canvas = document.getElementById(id);
        if (!canvas) {
            return;
        }
        charts.push(new Chart(canvas, {
            type: "line",
            data: { datasets },
            options: {
                animation: false, maintainAspectRatio: false, parsing: false, normalized: true, locale: "en",
                // Sharp on paper too.
                devicePixelRatio: Math.max(2, window.devicePixelRatio),
                interaction: { mode: "nearest", axis: "x", intersect: false },
                plugins: { legend: { display: datasets.length > 1, labels: { boxWidth: 32, boxHeight: 1 } } },
                scales: { x, y }
            }
        }));
    };

    const paint = () => {
        for (const chart of charts) {
            for (const dataset of chart.data.datasets) {
                dataset.borderColor = colour(dataset.colourName);
                dataset.backgroundColor = colour(dataset.fillName || dataset.colourName);
            }
            for (const scale of Object.values(chart.options.scales)) {
                scale.grid = { color: colour("line"), borderColor: colour("muted") };
                scale.ticks = { color: colour("muted"), maxRotation: 0, ...(scale.whole ? { precision: 0 } : {}) };
                scale.title.color = colour("text");
            }
            chart.options.plugins.legend.labels.color = colour("text");
            chart.update();
        }
    };

    const { curve, speeds } = data;
    if (curve) {
        const x = () => axis("Iteration", { whole: true, min: curve.iteration[0], max: curve.iteration[curve.iteration.length - 1] });
        // A change of some percent shall be seen, and rounding shall not look like one.
        const known = curve.energy.filter(value => value !== null);
        draw("energy", [line("Kinetic energy per atom", curve.iteration, curve.energy, "first", [])], x(),
            axis("Mean of v² / 2", { suggestedMin: 0.9 * Math.min(...known), suggestedMax: 1.1 * Math.max(...known) }));
        draw("collisions", [line("Collisions per iteration", curve.iteration, curve.collisions, "first", [])], x(),
            axis("Collisions per iteration", { beginAtZero: true }));
        draw("course-of-speeds", [
            line("Maximum", curve.iteration, curve.maximum, "second", [6, 3]),
            line("Average", curve.iteration, curve.average, "first", []),
            line("Minimum", curve.iteration, curve.minimum, "third", [2, 2])
        ], x(), axis("Units per iteration", { beginAtZero: true }));
    }
    if (speeds) {
        draw("distribution", [
            line("Rayleigh law", speeds.speed, speeds.rayleigh, "second", [6, 3]),
            line("Gamma law of shape 4", speeds.speed, speeds.gamma, "third", []),
            bars("Atoms", speeds.edges, speeds.density)
        ], axis("Speed, units per iteration", { min: 0, max: speeds.edges[speeds.edges.length - 1] }),
            axis("Probability density", { beginAtZero: true }));
    }
    paint();
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", paint);
    const print = printing => {
        document.documentElement.classList.toggle("printing", printing);
        paint();
    };
    addEventListener("beforeprint", () => print(true));
    addEventListener("afterprint", () => print(false));
})();
