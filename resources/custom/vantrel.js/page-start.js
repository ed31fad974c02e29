
// What the page does once it is there.

vantrel.finishPage = function (jsonData) {
    vantrel.deferSections();
    vantrel.showLogoCopies((jsonData.brandingData || {}).logos || []);
    document.addEventListener('copy', vantrel.copyWithoutBreaks);
};

if (document) {
    ReportEngine.afterRender(vantrel.setDocumentTitleFromTemplate);
    ReportEngine.afterRender(function (jsonData) {
        if (jsonData.colorData) {
            vantrel.makeCssColorRules(jsonData.colorData);
        }
        vantrel.finishPage(jsonData);
    });
    if (vantrel.makeRadarData) {
        ReportEngine.afterRender(function (jsonData) {
            // Fewer than three axes give no data: the failure that follows is what the page shows.
            var radarData = vantrel.makeRadarData(jsonData);
            radarData.axisColors.forEach(function (color, i) {
                corvane.sheet.insertRule('#time_radar .legend_axis' + i + ' { fill: ' + color + '}', 0);
            });
            RadarChart.draw('#time_radar', [radarData.data], radarData.options);
        });
    }
}
