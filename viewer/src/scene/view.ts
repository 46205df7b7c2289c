// The drawing in 3D on a canvas, to be turned, moved and zoomed by mouse, touch and keys. It is
// drawn anew only when something changes.
import {
    AmbientLight,
    BufferGeometry,
    Color,
    ConeGeometry,
    CylinderGeometry,
    DirectionalLight,
    DoubleSide,
    Float32BufferAttribute,
    Group,
    Line,
    LineBasicMaterial,
    Mesh,
    MeshBasicMaterial,
    MeshLambertMaterial,
    OrthographicCamera,
    Raycaster,
    Scene,
    Vector2,
    Vector3,
    WebGLRenderer,
} from "three";
import { OrbitControls } from "three/addons/controls/OrbitControls.js";
import type { point } from "../numbers/vector";
import { type drawing, type drawnArrow, type drawnCylinder, pointsOf } from "./drawing";
import type { palette } from "./palette";

export type viewpoint = "oblique" | "above" | "front" | "right";

// Place in a picture as parts of its width and height from the top left; deeper is farther.
export interface picturePoint {
    x: number;
    y: number;
    depth: number;
}
export type projection = (at: point) => picturePoint;

// From where each view looks. From right above X still points right: the camera is a hair in front.
const directions: Record<viewpoint, [number, number, number]> = {
    oblique: [0.45, -0.9, 0.75],
    above: [0, -1e-4, 1],
    front: [0, -1, 0.02],
    right: [1, 0, 0.02],
};
const turnStep = Math.PI / 36;
const zoomStep = 1.2;

export class view {
    onChange: () => void = () => {};

    private readonly m_renderer: WebGLRenderer;
    private readonly m_scene = new Scene();
    private readonly m_camera = new OrthographicCamera();
    private readonly m_controls: OrbitControls;
    private m_shapes = new Group();
    private m_drawing: drawing | undefined;
    private m_palette: palette | undefined;
    private m_pending = false;

    // Throws where the browser has no WebGL.
    constructor(private readonly m_canvas: HTMLCanvasElement) {
        // The buffer is kept, as printing takes the picture from it.
        this.m_renderer = new WebGLRenderer({
            canvas: m_canvas,
            antialias: true,
            preserveDrawingBuffer: true,
        });
        this.m_camera.up.set(0, 0, 1);
        this.m_scene.add(new AmbientLight(0xffffff, 1.6));
        const light = new DirectionalLight(0xffffff, 1.8);
        light.position.set(-0.4, 0.6, 1);
        this.m_camera.add(light);
        this.m_scene.add(this.m_camera);
        this.m_controls = new OrbitControls(this.m_camera, m_canvas);
        this.m_controls.enableDamping = false;
        this.m_controls.addEventListener("change", () => this.redrawSoon());
        new ResizeObserver(() => this.resize()).observe(m_canvas);
    }

    show(drawn: drawing, colours: palette): void {
        this.m_drawing = drawn;
        this.m_palette = colours;
        this.rebuild();
        this.redrawSoon();
    }

    lookFrom(direction: viewpoint): void {
        const way = new Vector3(...directions[direction]).normalize();
        this.m_camera.position.copy(this.m_controls.target).add(way.multiplyScalar(this.farAway()));
        this.fit();
    }

    turn(stepsRight: number, stepsUp: number): void {
        const way = this.m_camera.position.clone().sub(this.m_controls.target);
        const up = new Vector3(0, 0, 1);
        way.applyAxisAngle(up, -stepsRight * turnStep);
        const polar = way.angleTo(up);
        const wanted = Math.min(Math.PI - 1e-4, Math.max(1e-4, polar - stepsUp * turnStep));
        const side = new Vector3()
            .setFromMatrixColumn(this.m_camera.matrix, 0)
            .applyAxisAngle(up, -stepsRight * turnStep);
        way.applyAxisAngle(side, wanted - polar);
        this.m_camera.position.copy(this.m_controls.target).add(way);
        this.m_controls.update();
        this.redrawSoon();
    }

    // In parts of the picture's height.
    move(right: number, up: number): void {
        const height = (this.m_camera.top - this.m_camera.bottom) / this.m_camera.zoom;
        this.shift(-right * height, -up * height);
        this.m_controls.update();
        this.redrawSoon();
    }

    zoom(steps: number): void {
        this.m_camera.zoom *= zoomStep ** steps;
        this.m_camera.updateProjectionMatrix();
        this.redrawSoon();
    }

    // Moves and zooms until all is in the picture, from the same direction.
    fit(): void {
        if (this.m_drawing === undefined) return;
        this.m_controls.update();
        this.m_camera.updateMatrixWorld();
        const inverse = this.m_camera.matrixWorldInverse;
        const points = pointsOf(this.m_drawing).map(vectorOf);
        const seen = points.map((each) => each.applyMatrix4(inverse));
        const [left, right, down, up] = [
            Math.min(...seen.map(({ x }) => x)),
            Math.max(...seen.map(({ x }) => x)),
            Math.min(...seen.map(({ y }) => y)),
            Math.max(...seen.map(({ y }) => y)),
        ];
        this.shift((left + right) / 2, (down + up) / 2);
        const [width, height] = [
            this.m_camera.right - this.m_camera.left,
            this.m_camera.top - this.m_camera.bottom,
        ];
        this.m_camera.zoom =
            0.86 *
            Math.min(width / Math.max(right - left, 1e-9), height / Math.max(up - down, 1e-9));
        this.m_camera.updateProjectionMatrix();
        // A little up, as the line on the exaggeration stands below.
        this.shift(0, (-0.03 * height) / this.m_camera.zoom);
        this.m_controls.update();
        this.redrawSoon();
    }

    // The cylinder under a place on the canvas, in its pixels.
    cylinderAt(x: number, y: number): drawnCylinder | undefined {
        const place = new Vector2(
            (x / this.m_canvas.clientWidth) * 2 - 1,
            1 - (y / this.m_canvas.clientHeight) * 2,
        );
        this.m_scene.updateMatrixWorld(); // what is asked may not have been drawn yet
        const ray = new Raycaster();
        ray.setFromCamera(place, this.m_camera);
        const hit = ray
            .intersectObjects(this.m_shapes.children, false)
            .find((each) => each.object.userData.cylinder);
        return hit?.object.userData.cylinder as drawnCylinder | undefined;
    }

    projection(): projection {
        this.m_camera.updateMatrixWorld();
        return (at) => {
            const seen = vectorOf(at).project(this.m_camera);
            return { x: (seen.x + 1) / 2, y: (1 - seen.y) / 2, depth: seen.z };
        };
    }

    // A copy of the picture, `scale` times as fine as the canvas.
    picture(scale: number): HTMLCanvasElement {
        const [width, height] = [this.m_canvas.clientWidth, this.m_canvas.clientHeight];
        const copy = document.createElement("canvas");
        [copy.width, copy.height] = [width * scale, height * scale];
        this.m_renderer.setPixelRatio(scale);
        this.redraw();
        copy.getContext("2d")!.drawImage(this.m_canvas, 0, 0, copy.width, copy.height);
        this.m_renderer.setPixelRatio(window.devicePixelRatio);
        this.redraw();
        return copy;
    }

    private shift(right: number, up: number): void {
        const way = new Vector3()
            .setFromMatrixColumn(this.m_camera.matrixWorld, 0)
            .multiplyScalar(right);
        way.add(new Vector3().setFromMatrixColumn(this.m_camera.matrixWorld, 1).multiplyScalar(up));
        this.m_camera.position.add(way);
        this.m_controls.target.add(way);
    }

    private farAway(): number {
        const reach = Math.max(
            ...pointsOf(this.m_drawing!).map(({ x, y, z }) => Math.hypot(x, y, z)),
        );
        this.m_camera.near = 0;
        this.m_camera.far = 8 * reach;
        return 4 * reach;
    }

    private resize(): void {
        const [width, height] = [this.m_canvas.clientWidth, this.m_canvas.clientHeight];
        if (width === 0 || height === 0) return;
        this.m_renderer.setPixelRatio(window.devicePixelRatio);
        this.m_renderer.setSize(width, height, false);
        [this.m_camera.left, this.m_camera.right] = [-width / height, width / height];
        [this.m_camera.bottom, this.m_camera.top] = [-1, 1];
        this.m_camera.updateProjectionMatrix();
        this.fit();
        if (this.m_drawing !== undefined) this.redraw(); // its new size has wiped the canvas
    }

    private rebuild(): void {
        const [drawn, colours] = [this.m_drawing!, this.m_palette!];
        this.m_scene.remove(this.m_shapes);
        disposeOf(this.m_shapes);
        this.m_shapes = new Group();
        for (const each of drawn.planes)
            this.m_shapes.add(...planeShapes(each.corners, colours[each.set]));
        for (const each of drawn.cylinders)
            this.m_shapes.add(cylinderShape(each, colours[each.set]));
        for (const each of drawn.lines)
            this.m_shapes.add(lineShape(each.points, colours[each.role]));
        for (const each of drawn.arrows)
            this.m_shapes.add(...arrowShapes(each, drawn.size, colours[each.role]));
        this.m_scene.add(this.m_shapes);
        this.m_scene.background = new Color(colours.background);
    }

    // However much changes, the picture is drawn once a frame. What stands over it follows at once.
    private redrawSoon(): void {
        if (this.m_drawing === undefined) return;
        this.onChange();
        if (this.m_pending) return;
        this.m_pending = true;
        requestAnimationFrame(() => {
            this.m_pending = false;
            this.redraw();
        });
    }

    private redraw(): void {
        this.m_renderer.render(this.m_scene, this.m_camera);
    }
}

function vectorOf({ x, y, z }: point): Vector3 {
    return new Vector3(x, y, z);
}

function planeShapes(corners: point[], colour: string): (Mesh | Line)[] {
    const [a, b, c, d] = corners as [point, point, point, point];
    const geometry = new BufferGeometry();
    geometry.setAttribute(
        "position",
        new Float32BufferAttribute(
            [a, b, c, a, c, d].flatMap(({ x, y, z }) => [x, y, z]),
            3,
        ),
    );
    const material = new MeshBasicMaterial({
        color: colour,
        opacity: 0.16,
        transparent: true,
        side: DoubleSide,
        depthWrite: false,
    });
    return [new Mesh(geometry, material), lineShape([...corners, a], colour)];
}

function cylinderShape(of: drawnCylinder, colour: string): Mesh {
    const shape = rod(of.foot, of.top, of.radius, new MeshLambertMaterial({ color: colour }));
    shape.userData.cylinder = of;
    return shape;
}

function lineShape(points: point[], colour: string): Line {
    return new Line(
        new BufferGeometry().setFromPoints(points.map(vectorOf)),
        new LineBasicMaterial({ color: colour }),
    );
}

function arrowShapes(of: drawnArrow, size: number, colour: string): Mesh[] {
    const thickness = of.set === "first" ? 0.005 * size : 0.003 * size;
    const headLength = 9 * thickness;
    const [from, to] = [vectorOf(of.from), vectorOf(of.to)];
    const neck = to
        .clone()
        .sub(from)
        .setLength(from.distanceTo(to) - headLength)
        .add(from);
    const material = new MeshBasicMaterial({ color: colour });
    const head = new Mesh(new ConeGeometry(3 * thickness, headLength, 20), material);
    place(head, neck, to);
    return [rod(of.from, neck, thickness, material), head];
}

function rod(
    from: point,
    to: point,
    radius: number,
    material: MeshBasicMaterial | MeshLambertMaterial,
): Mesh {
    const [start, end] = [vectorOf(from), vectorOf(to)];
    const shape = new Mesh(
        new CylinderGeometry(radius, radius, start.distanceTo(end), 28),
        material,
    );
    place(shape, start, end);
    return shape;
}

// These shapes stand along Y, around their middle.
function place(shape: Mesh, from: Vector3, to: Vector3): void {
    shape.position.copy(from).add(to).multiplyScalar(0.5);
    shape.quaternion.setFromUnitVectors(new Vector3(0, 1, 0), to.clone().sub(from).normalize());
}

function disposeOf(shapes: Group): void {
    for (const each of shapes.children as (Mesh | Line)[]) {
        each.geometry.dispose();
        (each.material as MeshBasicMaterial).dispose();
    }
}
