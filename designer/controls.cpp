// SPDX-License-Identifier: MIT
#include "designer/controls.h"

#include "widgets/alarmviewer.h"
#include "widgets/connviewer.h"
#include "widgets/opcviewer.h"
#include "widgets/trendviewer.h"

namespace velt::designer {
namespace {

template <typename Control>
ui::ControlWidget* make(QWidget* parent) {
    return new Control(parent);
}

const ControlDescription descriptions[] = {
    {.name = "OPCViewer",
     .header = "widgets/opcviewer.h",
     .sourceProperty = "Hostname",
     .toolTip = "Stazioni dal vivo",
     .whatsThis = "Valore, qualità e ora delle variabili di un server OPC, dal vivo.",
     .size = {820, 480},
     .make = make<ui::OPCViewer>},
    {.name = "AlarmViewer",
     .header = "widgets/alarmviewer.h",
     .sourceProperty = "File",
     .toolTip = "Storico allarmi",
     .whatsThis =
         "Lo storico degli allarmi di un file Access, filtrato per data, allarme e stazioni.",
     .size = {820, 480},
     .make = make<ui::AlarmViewer>},
    {.name = "TrendViewer",
     .header = "widgets/trendviewer.h",
     .sourceProperty = "File",
     .toolTip = "Grafici storici",
     .whatsThis = "Fino a quattro grandezze di una stazione nel tempo, dal suo file Access.",
     .size = {1000, 620},
     .make = make<ui::TrendViewer>},
    {.name = "ConnViewer",
     .header = "widgets/connviewer.h",
     .sourceProperty = "File",
     .toolTip = "Connessioni",
     .whatsThis = "Lo stato delle linee verso le stazioni; le connette, disconnette e scarica.",
     .size = {629, 274},
     .make = make<ui::ConnViewer>},
};

}  // namespace

QString ControlDescription::className() const {
    return QLatin1String("velt::ui::") + QLatin1String(name);
}

QString ControlDescription::domXml() const {
    return QStringLiteral(R"(<ui language="c++" displayname="%2">
 <widget class="%1" name="%2">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect>
  </property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>%1</class>
   <extends>QWidget</extends>
   <propertyspecifications>
    <stringpropertyspecification name="%5" notr="true" type="singleline"/>
    <stringpropertyspecification name="FileIni" notr="true" type="singleline"/>
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>)")
        .arg(className(), QLatin1String(name))
        .arg(size.width())
        .arg(size.height())
        .arg(QLatin1String(sourceProperty));
}

std::span<const ControlDescription> controls() { return descriptions; }

}  // namespace velt::designer
