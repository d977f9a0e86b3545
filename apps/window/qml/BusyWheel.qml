import QtQuick

// An activity in progress.
Item {
    id: wheel

    property bool turning: true

    width: 20
    height: 20
    scale: Theme.scale
    Accessible.role: Accessible.ProgressBar

    Repeater {
        model: 8

        Rectangle {
            id: ray

            required property int index

            x: 9
            y: 1
            width: 2
            height: 6
            radius: 1
            antialiasing: true
            color: Theme.secondary
            opacity: (ray.index + 1) / 8
            transform: Rotation { origin.x: 1; origin.y: 9; angle: 45 * ray.index }
        }
    }
    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
        running: wheel.visible && wheel.turning
    }
}
